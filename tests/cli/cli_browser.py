"""Pages of collections in a real browser, if there is one."""
import html
import re
import shutil
import subprocess
import unittest

from __main__ import CliTest, FORMAT

BROWSER = shutil.which("chromium")

HOSTILE = ["<script>document.title='run'</script>", "</td></table><img src=x onerror=document.title='run'>",
           "\"><svg onload=document.title='run'>", "</script><script>document.title='run'//", "&lt;b&gt;",
           "javascript:document.title='run'", "<!--", "]]>", "{{7*7}}", "</style><style>*{display:none}"]


@unittest.skipUnless(BROWSER, "there is no chromium here")
class Browser(CliTest):
    def shown(self, script):
        """The page in the browser, after a script of the test has run in it."""
        page = (self.folder / "page.html").read_text("utf-8")
        (self.folder / "tried.html").write_text(
            page.replace("</body>", "<script>%s</script></body>" % script), "utf-8")
        done = subprocess.run(
            [BROWSER, "--headless", "--no-sandbox", "--disable-gpu", "--user-data-dir=%s/browser" % self.folder,
             "--dump-dom", (self.folder / "tried.html").as_uri()], capture_output=True, timeout=120)
        found = re.search(r"<pre id=\"found\">(.*?)</pre>", done.stdout.decode("utf-8"), re.S)
        self.assertTrue(found, done.stderr[-1000:])
        return html.unescape(found[1])

    REPORT = ("const say=text=>{const pre=document.createElement('pre');pre.id='found';"
              "pre.textContent=text;document.body.append(pre)};"
              "const first=()=>[...document.querySelectorAll('tbody tr')].filter(row=>!row.hidden)"
              ".map(row=>row.cells[1].textContent).join('|');")

    def make(self, rows):
        self.run_it("import", "new.BCS", "-", "--new", "--cut", stdin=("Author;Title\n" + rows).encode())
        self.run_it("export", "new.BCS", "-f", "html", "-o", "page.html")

    def test_texts_that_are_markup_stay_texts(self):
        rows = "".join('"%s";x\n' % text.replace('"', '""') for text in HOSTILE)
        self.make(rows)
        found = self.shown(self.REPORT + "say(document.title+'|'+first()+'|'+"
                           "getComputedStyle(document.querySelector('h1')).display)")
        stored = [text[:50] for text in HOSTILE]
        self.assertEqual(found, "|".join(["new.BCS", *stored, "block"]))

    def test_the_filter_leaves_what_holds_every_word(self):
        self.make("Åse;Vol. 10\nB;Vol. 2\nase b;Vol. 3\n")
        found = self.shown(self.REPORT + "const box=document.getElementById('filter');box.value='ASE vol';"
                           "box.dispatchEvent(new Event('input'));"
                           "say(first()+'|'+document.getElementById('count').textContent)")
        self.assertEqual(found, "Åse|ase b|2 of 3")

    def test_a_head_orders_up_and_down(self):
        self.make("A;Vol. 10\nB;Vol. 2\nC;Vol. 3\n")
        click = "document.querySelectorAll('th button')[2].click();"
        self.assertEqual(self.shown(self.REPORT + click + "say(first())"), "B|C|A")
        self.assertEqual(self.shown(self.REPORT + click + click + "say(first())"), "A|C|B")

    def test_numbers_are_ordered_by_value(self):
        rows = b"Item,CurrCost\n1,9.5\n2,-1\n3,100\n"
        self.sample("jazz.MCS")
        self.run_it("import", "jazz.MCS", "-", stdin=rows)
        self.run_it("export", "jazz.MCS", "-f", "html", "-o", "page.html")
        found = self.shown(self.REPORT + "[...document.querySelectorAll('th')].find(h=>h.textContent=="
                           "'Current Cost').querySelector('button').click();"
                           "say(document.querySelector('tbody tr').cells[0].textContent)")
        self.assertEqual(found, "2")

    def test_nothing_is_wider_than_a_telephone(self):
        self.sample("tapes.VCS")
        self.run_it("export", "tapes.VCS", "-f", "html", "-o", "page.html")
        script = (self.REPORT + "const frame=document.createElement('iframe');frame.style.width='360px';"
                  "frame.srcdoc=document.documentElement.outerHTML.replace(/<script[^]*$/,'');"
                  "frame.onload=()=>say(frame.contentDocument.documentElement.scrollWidth);"
                  "document.body.append(frame)")
        self.assertLessEqual(int(self.shown(script)), 360)
