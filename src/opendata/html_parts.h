#pragma once

#include <string_view>

/// The parts that every page has in common.
namespace quillbox::html {

inline constexpr std::string_view style = R"css(
:root { color-scheme: light dark; --ground: #fff; --text: #1b1b1f; --quiet: #5a5a66;
  --line: #d9d9e0; --bar: #3a6ea5; --even: #f5f6f8; }
@media (prefers-color-scheme: dark) { :root { --ground: #17181c; --text: #ececf1;
  --quiet: #a3a3b0; --line: #3a3b43; --bar: #7fb0e6; --even: #1f2026; } }
* { box-sizing: border-box; }
body { margin: 0 auto; padding: 1rem; max-width: 90rem; background: var(--ground);
  color: var(--text); font: 1rem/1.4 system-ui, sans-serif; overflow-wrap: anywhere; }
h1 { margin: 0 0 .25rem; font-size: 1.6rem; }
p { margin: 0 0 1rem; color: var(--quiet); }
.bars { display: grid; grid-template-columns: repeat(auto-fill, minmax(min(18rem, 100%), 1fr));
  gap: 1rem 2rem; margin: 0 0 1rem; align-items: start; }
figure { margin: 0; }
figcaption { font-weight: 600; }
svg { display: block; width: 100%; height: auto; }
svg text { fill: var(--text); font: 13px system-ui, sans-serif; }
svg rect { fill: var(--bar); }
.tools { display: flex; flex-wrap: wrap; gap: .5rem 1rem; align-items: center; margin: 0 0 .5rem; }
input { font: inherit; padding: .4rem .6rem; width: 20rem; max-width: 100%; color: inherit;
  background: var(--ground); border: 1px solid var(--quiet); border-radius: .3rem; }
output { color: var(--quiet); }
table { border-collapse: collapse; width: 100%; font-size: .9rem; }
th, td { text-align: left; vertical-align: top; padding: .35rem .5rem;
  border-bottom: 1px solid var(--line); overflow-wrap: break-word; }
td { min-width: 5rem; }
.t { min-width: 9rem; }
tbody tr:nth-child(even) { background: var(--even); }
.n { text-align: right; font-variant-numeric: tabular-nums; white-space: nowrap; min-width: 0; }
th { position: sticky; top: 0; background: var(--ground); vertical-align: bottom; }
th button { all: unset; cursor: pointer; font-weight: 600; }
th button:focus-visible { outline: 2px solid var(--bar); }
th[aria-sort=ascending] button::after { content: " \25B2"; }
th[aria-sort=descending] button::after { content: " \25BC"; }
.wide { overflow-x: auto; }
summary { cursor: pointer; white-space: nowrap; }
ol { margin: .25rem 0 0; padding-left: 1.6rem; }
@media (max-width: 45rem) {
  .wide { overflow: visible; }
  thead { position: absolute; width: 1px; height: 1px; overflow: hidden; clip-path: inset(50%); }
  table, tbody, tr, td { display: block; }
  tr { padding: .5rem 0; border-bottom: 1px solid var(--quiet); }
  td, .n { border: 0; padding: .1rem .5rem; text-align: left; white-space: normal; }
  td:empty { display: none; }
  td::before { color: var(--quiet); margin-right: .5rem; }
}
@media print {
  .tools { display: none; }
  th { position: static; }
  tr { break-inside: avoid; }
  body { max-width: none; padding: 0; font-size: 10pt; }
}
)css";

inline constexpr std::string_view script = R"js(
(() => {
  const body = document.querySelector("tbody");
  const rows = [...body.rows];
  const box = document.getElementById("filter");
  const count = document.getElementById("count");
  const fold = text => text.normalize("NFD").replace(/[\u0300-\u036f]/g, "").toLowerCase();
  let folded = null;
  const filter = () => {
    folded ??= rows.map(row => fold(row.textContent));
    const words = fold(box.value).split(/\s+/).filter(word => word);
    let shown = 0;
    rows.forEach((row, i) => {
      row.hidden = !words.every(word => folded[i].includes(word));
      if (!row.hidden) ++shown;
    });
    count.textContent = words.length ? shown + " of " + rows.length : "";
  };
  box.addEventListener("input", filter);
  const collator = new Intl.Collator(undefined, { numeric: true });
  const heads = [...document.querySelectorAll("th")];
  heads.forEach((head, at) => head.querySelector("button").addEventListener("click", () => {
    const down = head.ariaSort === "ascending";
    heads.forEach(other => other.removeAttribute("aria-sort"));
    head.ariaSort = down ? "descending" : "ascending";
    head.setAttribute("aria-sort", head.ariaSort);
    const isNumber = head.classList.contains("n");
    const key = row => {
      const cell = row.cells[at];
      if (!isNumber) return cell.textContent;
      return cell.dataset.v === undefined ? -Infinity : Number(cell.dataset.v);
    };
    const keyed = [...body.rows].map(row => [key(row), row]);
    keyed.sort(isNumber ? (a, b) => (a[0] > b[0]) - (a[0] < b[0])
      : (a, b) => collator.compare(a[0], b[0]));
    if (down) keyed.reverse();
    body.append(...keyed.map(pair => pair[1]));
  }));
  addEventListener("beforeprint", () => document.querySelectorAll("details")
    .forEach(list => { list.open = true; }));
})();
)js";

}  // namespace quillbox::html
