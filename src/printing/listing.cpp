#include "printing/listing.h"

#include <algorithm>
#include <utility>
#include <vector>

#include "printing/listing_rules.h"
#include "records/date_text.h"
#include "records/header_record.h"
#include "records/number_text.h"
#include "records/record_file.h"
#include "records/version.h"

namespace quillbox {
namespace {

constexpr std::size_t kLabelWidth = 18;
constexpr std::size_t kHeadingIndent = 35;
constexpr std::size_t kLoanIndent = 31;
constexpr std::size_t kSeparatorIndent = 5;
constexpr std::size_t kSeparatorWidth = 70;

const char* yesOrNo(int flag) { return flag == 1 ? "Yes" : "No"; }

std::string_view shownText(const Field& field, std::span<const std::byte> record,
                           std::size_t entry = 0) {
  return withoutTrailingBlanks(upToNul(textOf(field, record, entry)));
}

/// The lines of one block, in order. They are filled in place, as there may be millions.
class Block {
 public:
  explicit Block(PrintLines& lines) : lines_(lines) {}

  /// A label and its value, which starts in column 21.
  void add(std::string_view label, std::string_view value) {
    std::string& line = next().assign(label.substr(0, kLabelWidth));
    line.resize(kLabelWidth, ' ');
    line.append(": ").append(value);
  }
  void addIndented(std::size_t blanks, std::string_view text) {
    next().assign(blanks, ' ').append(text);
  }

  std::string& next() { return lines_.at(++count_); }
  std::int16_t count() const { return checked16(static_cast<int>(count_)); }

 private:
  PrintLines& lines_;
  std::size_t count_ = 0;
};

void addLoan(Block& block, std::span<const std::byte> record) {
  const auto text = [&](const Field* field) { return shownText(*field, record); };
  const auto flag = [&](const Field* field) { return wholeOf(*field, record); };
  if (flag(musicField("CurrLoaned")) != 1) return;
  block.addIndented(kLoanIndent, "Currently Loaned!");
  block.add("Borrower", text(musicField("Borrower")));
  block.add("Loaned On", text(musicField("DateLoaned")));
  block.add("Due Back On", text(musicField("DueDate")));
  if (flag(musicField("HasBook")) == 1)
    block.add("Book Loaned", yesOrNo(flag(musicField("BookLoaned"))));
}

void addGroup(Block& block, const ListingGroup& group, std::span<const std::byte> record) {
  if (group.field == nullptr) return;
  bool isFirst = true;
  for (std::size_t entry = 0; entry < group.field->count; ++entry) {
    const auto filled = withoutTrailingBlanks(textOf(*group.field, record, entry));
    if (filled.empty() || filled.front() == '\0') continue;
    if (isFirst && !group.heading.empty()) block.addIndented(kHeadingIndent, group.heading);
    isFirst = false;
    block.add(std::string(group.label).append(std::to_string(entry + 1)),
              shownText(*group.field, record, entry));
  }
}

}  // namespace

Listing::Listing(const CollectionKind& kind, ListingTexts texts)
    : rules_(listingRulesOf(kind)), kind_(kind), texts_(std::move(texts)) {}

std::string Listing::pageHeading() const {
  return std::string("Quillbox V").append(kVersionText).append(rules_.pageHeading);
}

std::optional<std::string> Listing::fileHeading(int mediaCode) const {
  const int heading = kind_.editor == EditorForm::wave ? mediaCode - 1 : 0;
  if (heading < 0 || heading >= static_cast<int>(rules_.fileHeadings.size())) return std::nullopt;
  return std::string("Quillbox V")
      .append(kVersionText)
      .append(rules_.fileHeadings[static_cast<std::size_t>(heading)]);
}

std::int16_t Listing::block(std::span<const std::byte> record, int item, int count,
                            PrintLines& lines) const {
  Block block(lines);
  const auto name = withoutTrailingBlanks(textOf(kind_.fields.front(), record));
  if (name == rules_.deletedMarker) {
    block.next().assign("Record #").append(numberText(item)).append(" Has been deleted.");
    return block.count();
  }
  block.add("Record #", numberText(item).append(" of").append(numberText(count)));
  for (const auto& [label, field] : rules_.lines)
    block.add(label, field == nullptr ? std::string() : value(*field, record));
  if (rules_.showsLoan) addLoan(block, record);
  addGroup(block, rules_.group, record);
  block.next().assign(kSeparatorIndent, ' ').append(kSeparatorWidth, '-');
  return block.count();
}

std::string Listing::value(const Field& field, std::span<const std::byte> record) const {
  switch (field.type) {
    case FieldType::text:
      return std::string(shownText(field, record));
    case FieldType::flag:
      return yesOrNo(wholeOf(field, record));
    case FieldType::choice:
      return texts_.choice(field, wholeOf(field, record));
    case FieldType::money:
      return signedAmount(moneyOf(field, record));
    case FieldType::whole:
      return numberText(wholeOf(field, record));
    case FieldType::date:
      return dateText(realOf(field, record), texts_.dateForm);
    case FieldType::size:
      break;
  }
  return realText(realOf(field, record)).append(" Bytes");
}

std::int16_t composePages(AppState& state, const CollectionKind& kind, const Listing& listing,
                          std::int16_t mode, PrintEngine& engine, Board& board) {
  PrintLines lines;
  std::int16_t pages = 0;
  ignoringErrors([&] { engine.PrintData(lines, pages, print_mode::reset); });
  lines.front() = listing.pageHeading();
  const std::vector<std::byte> blank = blankRecord(kind);
  const std::span<std::byte> record = kind.buffer(state);
  std::optional<RecordFile> file;
  ignoringErrors(
      [&] { file.emplace(state.files, state.currentPath, kind.recordLength, OpenMode::read); });
  for (int item = 1; item <= state.Count; ++item) {
    std::ranges::copy(blank, record.begin());
    if (file) ignoringErrors([&] { file->read(recordNumberOf(item), record, blank); });
    std::int16_t count = listing.block(record, item, state.Count, lines);
    board.progress(item, state.Count);
    ignoringErrors([&] { engine.PrintData(lines, count, mode); });
  }
  engine.PrintData(lines, pages, print_mode::pageCount);
  return pages;
}

}  // namespace quillbox
