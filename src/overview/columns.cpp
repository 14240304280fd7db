#include "overview/columns.h"

#include <algorithm>

#include "records/app_state.h"
#include "text/date_text.h"
#include "text/number_text.h"
#include "text/padding.h"

namespace quillbox {
namespace {

using enum ColumnKind;

constexpr bool kAtFirst = true;

// The names are those on the forms.
constexpr Column kMusic[] = {
    {"Artist", musicField("Artist"), text, kAtFirst},
    {"Album", musicField("Album"), text, kAtFirst},
    {"Record Co", musicField("RecordCo"), text},
    {"Aquisition Date", musicField("AquireDate"), date},
    {"Aquisiton Cost", musicField("AquireCost"), number},
    {"Current Cost", musicField("CurrCost"), number},
    {"Media Type", musicField("MediaType"), choice, kAtFirst},
    {"Has Booklet", musicField("HasBook"), tick},
    {"Currently On Loan", musicField("CurrLoaned"), tick},
    {"Borrower", musicField("Borrower"), text},
    {"Date Borrowed", musicField("DateLoaned"), date},
    {"Due Date", musicField("DueDate"), date},
    {"Book Loaned", musicField("BookLoaned"), tick},
    {"Notes", musicField("Notes"), text},
    {"Genre", musicField("Genre"), choice, kAtFirst},
    {"Bar Code/ID", musicField("BarCode"), text},
    {"Songs", musicField("Songs"), list},
};

constexpr Column kVideo[] = {
    {"Label Text", videoField("Label"), text, kAtFirst},
    {"Publisher", videoField("Publisher"), text, kAtFirst},
    {"Media Type", videoField("MediaType"), choice, kAtFirst},
    {"Commercially Recorded", videoField("Commercial"), tick},
    {"Purchase Price", videoField("PurPrice"), number},
    {"Current Price", videoField("CurrPrice"), number},
    {"Aquisition Date", videoField("AquireDate"), date, kAtFirst},
    {"Notes", videoField("Notes"), text},
    {"Movies", videoField("Movies"), list},
};

constexpr Column kSoftware[] = {
    {"Disk Label", softwareField("DiskLabel"), text, kAtFirst},
    {"Publisher", softwareField("Publisher"), text, kAtFirst},
    {"Media Type", softwareField("MediaType"), choice, kAtFirst},
    {"Commercial", softwareField("Commercial"), tick},
    {"Shareware", softwareField("Shareware"), tick},
    {"CD Required", softwareField("CDRequired"), tick},
    {"Purchase Price", softwareField("PurPrice"), number},
    {"Current Price", softwareField("CurrPrice"), number},
    {"Notes", softwareField("Notes"), text},
    {"Programs", softwareField("Programs"), list},
};

constexpr Column kComics[] = {
    {"Book Title", comicField("BookTitle"), text, kAtFirst},
    {"Comic Title", comicField("ComicTitle"), text, kAtFirst},
    {"Artists", comicField("Artists"), text, kAtFirst},
    {"Hero(es)", comicField("Heroes"), text},
    {"Villan(s)", comicField("Villains"), text},
    {"First Appearance Of", comicField("FirstApp"), text},
    {"Publisher", comicField("Publisher"), text, kAtFirst},
    {"Purchase Price", comicField("PurPrice"), number},
    {"Current Price", comicField("CurrPrice"), number},
    {"Aquisition Date", comicField("AquireDate"), date},
    {"Bagged", comicField("Bagged"), tick},
    {"Boarded", comicField("Boarded"), tick},
    {"Notes", comicField("Notes"), list},
};

// The reserved field of a book is never shown.
constexpr Column kBooks[] = {
    {"Author", bookField("Author"), text, kAtFirst},
    {"Title", bookField("Title"), text, kAtFirst},
    {"Publisher", bookField("Publisher"), text},
    {"Genre", bookField("Genre"), choice, kAtFirst},
    {"Media Type", bookField("MediaType"), choice, kAtFirst},
    {"Notes", bookField("Notes"), text},
};

constexpr Column kMediaFiles[] = {
    {"FileName", mediaFileField("FileName"), text, kAtFirst},
    {"Path To File", mediaFileField("FilePath"), text},
    {"Description", mediaFileField("Description"), text, kAtFirst},
    {"File Size", mediaFileField("FileSize"), number},
};

struct EditorColumns {
  EditorForm editor;
  std::span<const Column> columns;
};
constexpr EditorColumns kColumns[] = {
    {EditorForm::music, kMusic},   {EditorForm::video, kVideo}, {EditorForm::software, kSoftware},
    {EditorForm::comics, kComics}, {EditorForm::books, kBooks}, {EditorForm::wave, kMediaFiles},
};

}  // namespace

std::span<const Column> columnsOf(const CollectionKind& kind) {
  return rowOf<kColumns>(kind.editor).columns;
}

const Column* columnOf(const CollectionKind& kind, const Field& field) {
  for (const Column& column : columnsOf(kind))
    if (*column.field == field) return &column;
  return nullptr;
}

int filledEntries(const Field& list, std::span<const std::byte> record) {
  int filled = 0;
  for (std::size_t entry = 0; entry < list.count; ++entry)
    if (!readable(textOf(list, record, entry)).empty()) ++filled;
  return filled;
}

std::string columnText(const Column& column, std::span<const std::byte> record,
                       const RecordTexts& texts) {
  const Field& field = *column.field;
  if (column.kind == list) return std::to_string(filledEntries(field, record));
  switch (field.type) {
    case FieldType::text:
      return std::string(readable(textOf(field, record)));
    case FieldType::flag:
      return wholeOf(field, record) != 0 ? "Yes" : "";
    case FieldType::choice:
      return std::string(withoutTrailingBlanks(texts.choice(field, wholeOf(field, record))));
    case FieldType::money:
      return plainAmount(moneyOf(field, record));
    case FieldType::whole:
      return std::to_string(wholeOf(field, record));
    case FieldType::date:
      return dateText(realOf(field, record), texts.dateForm);
    case FieldType::size:
      break;
  }
  return realText(realOf(field, record));
}

}  // namespace quillbox
