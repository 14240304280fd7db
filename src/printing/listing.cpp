#include "printing/listing.h"

#include <algorithm>
#include <utility>
#include <vector>

#include "platform/checked16.h"
#include "printing/listing_rules.h"
#include "records/header_record.h"
#include "records/record_file.h"
#include "records/version.h"
#include "text/date_text.h"
#include "text/number_text.h"
#include "text/padding.h"

namespace quillbox {
namespace {

constexpr std::size_t kLabelWidth = 18;
constexpr std::size_t kHeadingIndent = 35;
constexpr std::size_t kLoanIndent = 31;
constexpr std::size_t kSeparatorIndent = 5;
constexpr std::size_t kSeparatorWidth = 70;

const char* yesOrNo(int flag) { return flag == 1 ? "Yes" : "No"; }

/// Puts a label at the beginning of `line`; the value starts in column 21.
std::string& startLine(std::string& line, std::string_view label) {
  line.assign(label.substr(0, kLabelWidth)).resize(kLabelWidth, ' ');
  return line.append(": ");
}

std::string startOfLine(std::string_view label) {
  std::string start;
  return startLine(start, label);
}

/// The lines of one block, in order. They are filled in place, because there may be millions.
class Block {
 public:
  explicit Block(PrintLines& lines) : lines_(lines) {}

  void add(std::string_view label, std::string_view value) {
    startLine(next(), label).append(value);
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
  const auto text = [&](const Field* field) { return readable(textOf(*field, record)); };
  const auto flag = [&](const Field* field) { return wholeOf(*field, record); };
  if (flag(musicField("CurrLoaned")) != 1) return;
  block.addIndented(kLoanIndent, "Currently Loaned!");
  block.add("Borrower", text(musicField("Borrower")));
  block.add("Loaned On", text(musicField("DateLoaned")));
  block.add("Due Back On", text(musicField("DueDate")));
  if (flag(musicField("HasBook")) == 1)
    block.add("Book Loaned", yesOrNo(flag(musicField("BookLoaned"))));
}

void addGroup(Block& block, const ListingGroup& group, std::span<const std::string> starts,
              std::span<const std::byte> record) {
  bool isFirst = true;
  for (std::size_t entry = 0; entry < starts.size(); ++entry) {
    const auto filled = withoutTrailingBlanks(textOf(*group.field, record, entry));
    if (filled.empty() || isUnwritten(filled)) continue;
    if (isFirst && !group.heading.empty()) block.addIndented(kHeadingIndent, group.heading);
    isFirst = false;
    block.next().assign(starts[entry]).append(readable(filled));
  }
}

/// The items of a collection, each once and in order. What cannot be read is as in a blank item.
class ItemsInOrder {
 public:
  ItemsInOrder(OpenFiles& files, const OpenCollection& collection, const CollectionKind& kind)
      : blank_(blankRecord(kind)), left_(collection.Count) {
    ignoringErrors(
        [&] { file_.emplace(files, collection.currentPath, kind.recordLength, OpenMode::read); });
  }

  /// Valid until the next call. There must be one.
  std::span<const std::byte> next() {
    if (at_ == block_.size()) readBlock();
    const auto item = std::span(block_).subspan(at_, blank_.size());
    at_ += blank_.size();
    return item;
  }

 private:
  void readBlock() {
    const int count = std::min(left_, static_cast<int>(kRecordBlockBytes / blank_.size()));
    block_.resize(static_cast<std::size_t>(count) * blank_.size());
    at_ = 0;
    // Where a block cannot be read, most of its items can.
    if (!read(first_, block_)) {
      for (int each = 0; each < count; ++each) {
        const auto item = std::span(block_).subspan(static_cast<std::size_t>(each) * blank_.size(),
                                                    blank_.size());
        if (!read(first_ + each, item)) std::ranges::copy(blank_, item.begin());
      }
    }
    first_ += count;
    left_ -= count;
  }

  bool read(int first, std::span<std::byte> items) {
    bool isRead = false;
    ignoringErrors([&] {
      if (!file_) return;
      const std::size_t there = file_->readRecords(recordNumberOf(first), items);
      for (std::size_t at = there; at < items.size(); ++at) items[at] = blank_[at % blank_.size()];
      isRead = true;
    });
    return isRead;
  }

  std::vector<std::byte> blank_;
  std::optional<RecordFile> file_;
  std::vector<std::byte> block_;
  std::size_t at_ = 0;  // of the next item in the block
  int first_ = 1;       // of the next block
  int left_;            // items after this block
};

}  // namespace

Listing::Listing(const CollectionKind& kind, ListingTexts texts)
    : rules_(listingRulesOf(kind)), kind_(kind), texts_(std::move(texts)) {
  for (const ListingLine& line : rules_.lines) starts_.push_back(startOfLine(line.label));
  const std::size_t entries = rules_.group.field == nullptr ? 0 : rules_.group.field->count;
  for (std::size_t entry = 1; entry <= entries; ++entry)
    entryStarts_.push_back(
        startOfLine(std::string(rules_.group.label).append(std::to_string(entry))));
}

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
  for (std::size_t at = 0; at < starts_.size(); ++at) {
    std::string& line = block.next().assign(starts_[at]);
    if (rules_.lines[at].field != nullptr) addValue(line, *rules_.lines[at].field, record);
  }
  if (rules_.showsLoan) addLoan(block, record);
  addGroup(block, rules_.group, entryStarts_, record);
  block.next().assign(kSeparatorIndent, ' ').append(kSeparatorWidth, '-');
  return block.count();
}

void Listing::addValue(std::string& line, const Field& field,
                       std::span<const std::byte> record) const {
  switch (field.type) {
    case FieldType::text:
      line.append(readable(textOf(field, record)));
      break;
    case FieldType::flag:
      line.append(yesOrNo(wholeOf(field, record)));
      break;
    case FieldType::choice:
      line.append(texts_.choice(field, wholeOf(field, record)));
      break;
    case FieldType::money:
      line.append(signedAmount(moneyOf(field, record)));
      break;
    case FieldType::whole:
      line.append(numberText(wholeOf(field, record)));
      break;
    case FieldType::date:
      line.append(dateText(realOf(field, record), texts_.dateForm));
      break;
    case FieldType::size:
      line.append(realText(realOf(field, record))).append(" Bytes");
      break;
  }
}

std::int16_t composePages(OpenFiles& files, const OpenCollection& collection,
                          const CollectionKind& kind, const Listing& listing, std::int16_t mode,
                          PrintEngine& engine, Board& board) {
  PrintLines lines;
  std::int16_t pages = 0;
  ignoringErrors([&] { engine.PrintData(lines, pages, print_mode::reset); });
  lines.front() = listing.pageHeading();
  ItemsInOrder items(files, collection, kind);
  for (int item = 1; item <= collection.Count; ++item) {
    std::int16_t count = listing.block(items.next(), item, collection.Count, lines);
    board.progress(item, collection.Count);
    ignoringErrors([&] { engine.PrintData(lines, count, mode); });
  }
  engine.PrintData(lines, pages, print_mode::pageCount);
  return pages;
}

}  // namespace quillbox
