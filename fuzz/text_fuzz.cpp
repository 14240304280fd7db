// Any text through everything that parses text: numbers, dates, paths and the two character sets.

#include <array>
#include <cmath>
#include <cstdlib>
#include <optional>
#include <span>
#include <vector>

#include "fuzz/input.h"
#include "platform/paths.h"
#include "platform/run_time_error.h"
#include "records/field.h"
#include "text/date_text.h"
#include "text/number_text.h"
#include "text/padding.h"
#include "text/windows1252.h"

namespace quillbox::fuzz {
namespace {

constexpr auto kDateForms = std::to_array<std::string_view>(
    {"M/d/yy", "dd.MM.yyyy", "yyyy-MM-dd", "d MMM yy", "yyyy. MM. dd", "MMM/d/yyyy", "d/M/yy",
     " d/M/yy ", "dddd", ""});

/// What a call returns, nothing when it ends in a run-time error.
template <typename Call>
auto resultOf(const Call& call) -> std::optional<decltype(call())> {
  try {
    return call();
  } catch (const RunTimeError&) {
    return std::nullopt;
  }
}

void readNumbers(std::string_view text) {
  constexpr std::int64_t scale = 10'000;
  const auto amount = resultOf([&] { return leadingAmount(text); });
  const auto leading = resultOf([&] { return leadingWhole(text); });
  const auto whole = resultOf([&] { return wholeNumber(text); });
  if (whole) require(leading == whole, "a whole number leads its text");
  if (leading) require(amount.has_value(), "a whole number is an amount");
  if (leading)
    require(std::abs(*amount - *leading * scale) <= scale / 2, "the nearest whole number");
  if (amount) {
    require(leadingAmount(plainAmount(*amount)) == *amount, "an amount is read as shown");
    require(leadingAmount(signedAmount(*amount)) == *amount, "a signed amount is read as shown");
  }
}

void showDate(double date, std::string_view form, bool isPlainForm) {
  const std::string text = dateText(date, form);
  if (text.empty() || !isPlainForm) return;
  const auto read = resultOf([&] { return dateOf(text, form); });
  require(read.has_value(), "a date is read as shown");
  require(dateText(*read, form) == text, "a date that was read is shown as before");
  constexpr double half = 0.51 / 86'400;  // seconds are shown, not parts of them
  const auto dayAndTime = [](double stored) {
    return std::trunc(stored) + std::abs(stored - std::trunc(stored));
  };
  require(std::abs(dayAndTime(*read) - dayAndTime(date)) < half, "a date stays that date");
}

/// A day that every form shows, as few numbers are.
double dayOf(Input& input) {
  constexpr int firstDay = -657'434;  // of the year 100
  constexpr int days = 3'615'900;     // to the end of the year 9999
  constexpr std::uint32_t secondsADay = 86'400;
  const auto sixteenBits = [&] { return static_cast<std::uint16_t>(input.whole()); };
  const std::uint32_t day = sixteenBits() | std::uint32_t{input.byte()} << 16U;
  const std::uint32_t second = sixteenBits() * 2U % secondsADay;
  const double whole = firstDay + static_cast<int>(day % days);
  const double part = static_cast<double>(second) / secondsADay;
  return whole < 0 ? whole - part : whole + part;
}

void readDates(std::span<const double> numbers, std::string_view form, bool isPlainForm,
               std::string_view text) {
  for (const double number : numbers) showDate(number, form, isPlainForm);
  const auto date = resultOf([&] { return dateOf(text, form); });
  if (!date) return;
  require(!dateText(*date, form).empty(), "a date that was read is shown");
  showDate(*date, form, isPlainForm);
}

char small(char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; }

/// The same by another method: which prefixes of the name each prefix of the pattern matches.
bool matchesByTable(std::string_view name, std::string_view pattern) {
  std::vector<char> matched(name.size() + 1);
  matched[0] = 1;
  for (const char wanted : pattern) {
    std::vector<char> next(name.size() + 1);
    if (wanted == '*') next[0] = matched[0];
    for (std::size_t i = 0; i < name.size(); ++i) {
      const bool one = wanted == '?' || small(wanted) == small(name[i]);
      next[i + 1] = wanted == '*' ? (matched[i + 1] != 0 || next[i] != 0 ? 1 : 0)
                                  : (one && matched[i] != 0 ? 1 : 0);
    }
    matched = next;
  }
  return matched[name.size()] != 0;
}

void takePathApart(std::string_view path, std::string_view pattern) {
  constexpr std::string_view separators = "/\\";
  const std::string_view name = fileNameOf(path);
  const std::string_view folder = folderOf(path);
  require(path.ends_with(name) && path.starts_with(folder), "a path is a folder and a name");
  require(name.find_first_of(separators) == std::string_view::npos, "a name is in no folder");
  require(folder.size() + name.size() + 1 >= path.size(), "one separator between them");
  require(extensionOf(path).size() <= 3 && extensionOf(path).size() <= path.size(),
          "three characters tell the kind");
  require(backupPath(path, "bak").ends_with("bak"), "a backup's name ends as told");
  require(joinPath(folder, name).ends_with(name), "joined, the name stays");

  const std::string full = fullPath(path, "/home/me");
  require(isFullPath(full), "a full path is one");
  require(fullPath(full, "/elsewhere") == full, "a full path is below no other folder");

  require(matchesPattern(path, pattern) == matchesByTable(path, pattern), "a pattern matches");
  require(matchesPattern(path, "*") && matchesPattern(path, path), "a path matches itself");
}

void changeCharacterSet(std::string_view bytes) {
  const std::string utf8 = toUtf8(bytes);
  require(isUtf8(utf8), "what is shown is UTF-8");
  require(fromUtf8(utf8) == bytes, "every byte comes back");
  const std::string stored = fromUtf8(bytes);
  require(fromUtf8(toUtf8(stored)) == stored, "what is stored comes back");
  if (isUtf8(bytes)) require(stored.size() <= bytes.size(), "a byte for each character");

  const std::string capitals = inCapitals(bytes);
  require(inCapitals(capitals) == capitals, "capitals are their own capitals");
  require(capitals.size() == bytes.size(), "a capital for each character");
}

void trim(std::string_view text) {
  const std::string_view trimmed = withoutBlanksAround(text);
  require(!trimmed.starts_with(' ') && !trimmed.ends_with(' '), "no blanks around");
  require(!withoutTrailingBlanks(text).ends_with(' '), "no blanks at the end");
  require(upToNul(text).find('\0') == std::string_view::npos, "no zero byte is shown");
}

void readText(Input input) {
  const std::size_t form = input.byte() % (kDateForms.size() + 1);
  const std::array<double, 2> numbers = {input.real(), dayOf(input)};
  const std::string_view other = input.line();  // a date form, and a pattern
  const std::string_view text = input.rest();
  readNumbers(text);
  const bool isPlainForm = form < kDateForms.size();
  readDates(numbers, isPlainForm ? kDateForms.at(form) : other, isPlainForm, text);
  takePathApart(text, other);
  changeCharacterSet(text);
  trim(text);
  require(!realText(numbers.front()).empty(), "every number has a text");
}

}  // namespace
}  // namespace quillbox::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  quillbox::fuzz::readText({data, size});
  return 0;
}
