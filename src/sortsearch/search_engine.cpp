#include "sortsearch/search_engine.h"

#include <algorithm>
#include <utility>

#include "platform/checked16.h"
#include "records/entered.h"
#include "records/header_record.h"
#include "records/record_file.h"
#include "records/record_reader.h"
#include "text/date_text.h"
#include "text/number_text.h"
#include "text/padding.h"
#include "text/windows1252.h"

namespace quillbox {
namespace {

/// What the board shows for each item; one text for all, because there may be tens of thousands.
class ProgressLine {
 public:
  // Each number keeps the blank for its sign.
  explicit ProgressLine(int count) : end_(" of " + numberText(count) + "...") {}

  const std::string& of(int item) {
    line_.resize(kStart.size());
    appendNumberText(line_, item);
    return line_.append(end_);
  }

 private:
  static constexpr std::string_view kStart = "Searching Record ";

  std::string end_;
  std::string line_{kStart};
};

}  // namespace

Query::Query(const CollectionKind& kind, std::span<const Entered> inputs, std::string dateForm)
    : rules_(searchRulesOf(kind)), dateForm_(std::move(dateForm)), record_(kind.recordLength) {
  for (const Entered& input : inputs) add(input);
}

void Query::add(const Entered& input) {
  const Field& field = *input.field;
  const bool takesPart = field.type == FieldType::flag     ? true
                         : field.type == FieldType::choice ? input.whole >= 0
                                                           : !input.text.empty();
  if (!takesPart) return;
  Condition condition{&field, {}};
  switch (field.type) {
    case FieldType::text:
      setText(field, record_, taken(field, input.text));
      condition.text = wanted(textOf(field, record_), input.text);
      break;
    case FieldType::date:
      condition.text = withoutTrailingBlanks(input.text);
      break;
    case FieldType::money:
      setMoney(field, record_, leadingAmount(input.text));
      break;
    case FieldType::whole:
      setWhole(field, record_, leadingWhole(input.text));
      break;
    case FieldType::flag:
    case FieldType::choice:
      setWhole(field, record_, input.whole);
      break;
    case FieldType::size:
      return;  // never on a form
  }
  conditions_.push_back(std::move(condition));
}

bool Query::matches(std::span<const std::byte> record) const {
  return std::ranges::all_of(conditions_, [&](const Condition& c) { return meets(record, c); });
}

bool Query::meets(std::span<const std::byte> record, const Condition& condition) const {
  const Field& field = *condition.field;
  switch (field.type) {
    case FieldType::text:
      return textMeets(textOf(field, record), condition.text);
    case FieldType::date:
      return dateText(realOf(field, record), dateForm_) == condition.text;
    case FieldType::money:
      return moneyOf(field, record) == moneyOf(field, record_);
    case FieldType::flag:
      return (wholeOf(field, record) != 0) == (wholeOf(field, record_) != 0);
    case FieldType::whole:
    case FieldType::choice:
    case FieldType::size:  // sets no condition
      break;
  }
  return wholeOf(field, record) == wholeOf(field, record_);
}

/// The part of a typed text that is searched for.
std::string_view Query::taken(const Field& field, std::string_view typed) const {
  const bool isDate =
      std::ranges::any_of(rules_.dates, [&field](const Field* date) { return *date == field; });
  const bool startsAsDate = typed.front() >= '1' && typed.front() <= '9';
  return isDate && !startsAsDate ? std::string_view() : typed;
}

/// The text a record must have, in the form textMeets compares.
std::string Query::wanted(std::string_view stored, std::string_view typed) const {
  if (rules_.texts == TextMatch::ignoresCase) return inCapitals(typed);
  return std::string(rules_.texts == TextMatch::trimmed ? withoutTrailingBlanks(stored) : stored);
}

bool Query::textMeets(std::string_view text, std::string_view wanted) const {
  switch (rules_.texts) {
    case TextMatch::trimmed:
      return text.starts_with(wanted) &&
             text.find_first_not_of(' ', wanted.size()) == std::string_view::npos;
    case TextMatch::ignoresCase:
      return std::ranges::equal(withoutTrailingBlanks(text), wanted, {}, capitalOf);
    case TextMatch::full:
      break;
  }
  return text == wanted;
}

std::optional<FoundItem> findItem(OpenFiles& files, const OpenCollection& collection,
                                  const CollectionKind& kind, const Query& query, Board& board) {
  const int count = collection.Count;
  if (count < 1) return std::nullopt;
  const bool showsProgress = searchRulesOf(kind).showsProgress;
  std::optional<OpenBoard> open;
  if (showsProgress) open.emplace(board, "Searching...");
  RecordFile file(files, collection.currentPath, kind.recordLength, OpenMode::read,
                  file_number::collection);
  const std::vector<std::byte> blank = blankRecord(kind);
  RecordReader reader(file, count, recordNumberOf(1), blank);
  ProgressLine line(count);
  for (int item = 1; item <= count; ++item) {
    if (showsProgress) {
      board.print(line.of(item));
      board.progress(item, count);
    }
    const auto record = reader.next();
    if (query.matches(record)) return FoundItem{checked16(item), {record.begin(), record.end()}};
  }
  return std::nullopt;
}

}  // namespace quillbox
