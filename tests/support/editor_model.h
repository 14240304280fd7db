#pragma once

#include <algorithm>
#include <optional>
#include <string>
#include <vector>

#include "support/model_store.h"
#include "support/sort_model.h"

namespace quillbox::test {

/// The result of a number typed into Go To.
struct GoToAnswer {
  std::string text;
  std::optional<int> item;  ///< none: no number, or not a 16-bit one
  int error = 0;            ///< of an answer without an item
};

/// An independent model of an editor: the files as bytes, the positions, the record buffer and the
/// contents of the forms. Each step is a user's; it returns the run-time error that is shown, or
/// nothing.
class EditorModel : public ModelStore {
 public:
  static constexpr int kNew = -1;

  EditorModel(const ModelKind& kind, ModelDisk& disk)
      : ModelStore(kind, disk), buffer(kind.recordLength, '\0') {
    for (const ModelInput& input : kind.inputs) {
      inputs.push_back(emptyOf(input));
      search.push_back(emptyOf(input));
    }
    list.resize(static_cast<std::size_t>(kind.list.entries));
    ticks = kind.ticks({});
  }

 private:
  int unfinishedSlot_ = 0;  ///< of a new item whose write failed; 0: none

 public:
  int openings = 0;  ///< of collections
  int curRec = 0;
  int listPos = 0;
  std::string buffer;
  std::string label;
  bool previousEnabled = false;
  bool nextEnabled = false;
  bool onLoan = false;                ///< the boxes of a loan are enabled
  bool bookLoanedEnabled = true;      ///< music's other loan box
  std::vector<Held> inputs;           ///< on the editor
  std::vector<Held> list;             ///< on its list pages
  std::vector<Held> search;           ///< on the search form
  std::vector<bool> ticks;            ///< on the sort form
  std::string songTitles[2] = {};     ///< typed at the top of the song pages
  std::optional<std::string> inFile;  ///< the item at the position, as last shown or written

  /// What was written or deleted last.
  struct Undo {
    int item;
    std::string before;
    std::string after;
    bool isBegun = false;  ///< undoing it failed
  };
  std::optional<Undo> undo;

  int& position() { return kind_.isVideo() ? listPos : curRec; }

  /// Opens a collection, or creates it. Returns the messages shown meanwhile.
  std::vector<std::string> open(const std::string& path) {
    path_ = path;
    ++openings;
    const bool exists = disk_.contains(path);
    if (!exists) writeHeader(0);
    count = headerCount();
    const int fileType = headerNumber(2);
    const bool isRefused = kind_.isMusic() && fileType < 4;
    std::vector<std::string> said;
    if (isRefused) said = {"Old File Type Incompatible. Contact us for upgrades."};
    if (kind_.isMusic() && fileType == 4) {
      upgrade();
      said = {"Performing file type upgrade.",
              "Updated File Type 4 to File Type 5\r\nBarCode/ID Field Added.",
              "Updating complete."};
    }
    bookLoanedEnabled = true;
    reset();
    if (!exists && !kind_.skipsDeleted()) {
      label = "New File";
    } else if (count < 1 || isRefused) {
      showNothing();
    } else {
      label = kind_.label(1, count);
      show(1);
    }
    return said;
  }

  /// The new-collection dialog creates a collection; if the old one stays, so do its bytes.
  void makeNew(const std::string& path, bool oldStays) {
    path_ = path;
    if (!oldStays) disk_.erase(path);
    writeAt(0, headerOfNew());
    count = 0;
    listPos = 0;
    bookLoanedEnabled = true;
    reset();
  }

  bool isEnabled(std::size_t input) const {
    const std::string name = kind_.inputs[input].name;
    if (name == "txtBorrower" || name == "txtDateLoaned" || name == "txtDueDate") return onLoan;
    return name != "chkBookLoaned" || bookLoanedEnabled;
  }

  /// The same on the search form, where the booklet's box depends on both boxes.
  bool isSearchEnabled(std::size_t input) const {
    const std::string name = kind_.inputs[input].name;
    const bool loaned = isTicked(search, "chkCurrLoaned");
    if (name == "txtBorrower" || name == "txtDateLoaned" || name == "txtDueDate") return loaned;
    return name != "chkBookLoaned" || (loaned && isTicked(search, "chkHasBook"));
  }

  void tick(std::size_t input) {
    inputs[input].number = 1 - inputs[input].number;
    const std::string name = kind_.inputs[input].name;
    if (name == "chkCurrLoaned") enableLoan();
    if (name == "chkHasBook" && ticked("chkCurrLoaned")) bookLoanedEnabled = ticked("chkHasBook");
  }

  std::string write() {
    std::string stored = buffer;
    for (std::size_t i = 0; i < inputs.size(); ++i) {
      const Held held = filled(i);
      if (held.error != 0) return errorText(held.error);
      putBytes(stored, kind_.inputs[i].offset, storedBytes(kind_.inputs[i], held));
    }
    fillDates();
    buffer = stored;
    storeList();
    undo.reset();
    if (curRec != kNew) {
      writeItem(position(), buffer, count);
      if (inFile) undo = Undo{position(), *inFile, buffer};
      inFile = buffer;
      return {};
    }
    const int slot = newSlot();
    if (slot > count) writeHeader(slot);
    writeItem(slot, buffer, std::max(slot, count));
    count = std::max(slot, count);
    unfinishedSlot_ = 0;
    clear();
    return {};
  }

  /// What remains after a failed write: dates that were empty, and the place of a new item for the
  /// next attempt, which may no longer be a deleted one.
  void writeFailed(int slot) {
    fillDates();
    if (curRec == kNew && slot <= count) unfinishedSlot_ = slot;
  }

  /// Any command other than writing and clearing ends the attempts to write the same item.
  void giveUpSlot() { unfinishedSlot_ = 0; }

  /// Where a new item goes.
  int newSlot() const {
    if (unfinishedSlot_ > 0) return unfinishedSlot_;
    return deletedItem().value_or(count + 1);
  }

  void clear() {
    inFile.reset();
    for (std::size_t i = 0; i < inputs.size(); ++i)
      if (kind_.inputs[i].is != Is::choice || kind_.isMusic()) inputs[i] = emptyOf(kind_.inputs[i]);
    clearList();
    curRec = kNew;
    label = kind_.labels.fresh;
    if (kind_.isMusic()) enableLoan();
  }

  std::string removeItem() {
    if (curRec < 1) return errorText(63, path_);
    std::string record = kind_.skipsDeleted() ? buffer : std::string(kind_.recordLength, '\0');
    putBytes(record, 0, fixedText(std::string(kind_.marker()), kind_.markerWidth()));
    writeItem(position(), record, count);
    undo.reset();
    if (inFile) undo = Undo{position(), *inFile, record};
    if (kind_.skipsDeleted()) buffer = record;
    clear();
    return {};
  }

  /// Undoes the last write or delete, if it is still in the file.
  void takeBack() {
    if (!undo->isBegun && record(undo->item) != undo->after) return;
    writeItem(undo->item, undo->before, count);
    show(undo->item);
  }

  /// Restores what was on the form, on the item that it was typed on.
  void bringBack(const EditorModel& left) {
    const auto item = left.itemShown();
    item ? show(*item) : clear();
    putBack(left);
  }

  /// A new item with the contents of the form.
  void duplicate() {
    if (curRec < 1) return;
    const EditorModel copied = *this;
    clear();
    putBack(copied);
  }

  void next() {
    int item = position();
    nextEnabled = nextEnabled && item > 0;
    if (item <= 0) return;
    do ++item;
    while (kind_.skipsDeleted() && isDeleted(record(item)));
    show(item);
  }

  /// The item before; nothing where Previous would search a whole lap of deleted items.
  std::optional<int> previousItem() {
    int item = position();
    for (int read = 0; read < count; ++read) {
      if (item < 1) item = count;
      if (item > 1)
        --item;
      else if (kind_.skipsDeleted())
        item = count;
      if (!kind_.skipsDeleted() || !isDeleted(record(item))) return item;
    }
    return std::nullopt;
  }
  void previous() {
    if (const auto item = previousItem()) show(*item);
  }

  bool isItem(const GoToAnswer& answer) const {
    return answer.item && *answer.item >= 1 && *answer.item <= count;
  }

  /// A step on the list page.
  void stepList(int by) {
    if (count < 1) return;
    int item = listPos + by;
    if (by > 0 && item > count) item = 1;
    if (by < 0 && item < 1) item = count;
    if (kind_.isVideo()) return show(item);
    listPos = item;
    buffer = record(item);
    updateScreen();
  }

  /// A title that did not fit is cleared, too.
  void clearList() {
    for (Held& entry : list) entry = {};
    for (std::string& title : songTitles) title.clear();
  }

  /// Moves the title at the top of a song page to the first empty song.
  void addSong(int page) {
    std::string& title = songTitles[page];
    if (trimmedOf(title).empty()) return;
    for (int song = page * 20; song < page * 20 + 20; ++song) {
      Held& entry = list[static_cast<std::size_t>(song)];
      if (!trimmedOf(entry.text).empty()) continue;
      entry = {title};
      title.clear();
      return;
    }
  }

  /// Entries to record buffer.
  void storeList() {
    for (std::size_t entry = 0; entry < list.size(); ++entry)
      putBytes(buffer, kind_.list.offset + entry * ModelList::kWidth,
               fixedText(list[entry].text, ModelList::kWidth));
  }

  void sort() {
    std::vector<std::string> items;
    for (int item = 1; item <= count; ++item) items.push_back(record(item));
    SortModel sorted(kind_, items);
    sorted.run(ticks);
    count = sorted.count;
    std::string file =
        littleEndian(count, 2) + (this->file() + std::string(12, '\0')).substr(2, 10);
    file.resize(count > 0 ? kind_.recordLength : 12, '\0');
    for (const std::string& item : sorted.items()) file += item;
    disk_[path_] = file;

    if (!kind_.isMusic()) listPos = 1;
    if (curRec < 1) return;
    const int item = std::min(position(), count);
    reset();
    if (item < 1) return showNothing();
    label = kind_.label(item, count);
    show(item);
  }

  /// Searches for the contents of the search form. True for a hit, which is then shown.
  bool searchFor(std::string& error) {
    for (std::size_t i = 0; i < search.size(); ++i)
      if (isCondition(i) && search[i].error == 6) {
        error = errorText(6);
        return false;
      }
    for (int item = 1; item <= count; ++item) {
      if (!canBeRead(item)) {
        error = errorText(63, path_);
        return false;
      }
      if (!matches(record(item))) continue;
      if (!kind_.isBooks()) listPos = item;
      show(item);
      return true;
    }
    return false;
  }

  /// Loads the files of a folder.
  void load(const std::string& folder, const std::vector<std::string>& names) {
    const int before = count;
    takeCount(headerCount());
    std::vector<std::string> known;
    for (int item = 1; item <= count; ++item)
      known.push_back(withoutEndBlanks(markerOf(record(item))));
    for (const std::string& name : names) {
      const std::string stored = fixedText(name, 64);
      if (std::ranges::count(known, withoutEndBlanks(stored)) > 0) continue;
      known.push_back(withoutEndBlanks(stored));
      ++count;
      writeItem(count, stored + fixedText(folder, 128) + littleEndian(0, 8) + fixedText("", 128),
                count);
    }
    if (curRec >= 1) return show(curRec);
    if (count > before) show(1);
  }

  /// After a loader has failed: the item stays, with the count of the file.
  void takeCount(int counted) {
    if (counted == count) return;
    count = counted;
    if (curRec >= 1) label = kind_.label(curRec, count);
    previousEnabled = curRec != 1;
    nextEnabled = curRec != count;
  }

  /// Shows an item after reading it.
  void show(int item) {
    buffer = record(item);
    inFile = buffer;
    position() = item;
    curRec = item;
    if (kind_.isMusic()) clearList();
    updateScreen();
  }

 private:
  /// From records that end before the bar code. The header's count less one is carried over; the
  /// media type is whatever the record buffer has.
  void upgrade() {
    const std::string old = file();
    disk_[withEnding(path_, "BAK")] = old;
    disk_.erase(path_);
    for (std::size_t number = 2; static_cast<int>(number) <= numberAt(old, 0, 2); ++number) {
      std::string item = blankRecord().substr(0, kOldMusicLength);
      const std::size_t at = (number - 1) * kOldMusicLength;
      if (at < old.size()) putBytes(item, 0, old.substr(at, kOldMusicLength));
      putBytes(item, 2188, buffer.substr(2188, 2));
      putBytes(item, 2334, littleEndian(-1, 2));
      buffer = item + fixedText("Bar Code/ID Here...", 36);
      writeAt((number - 1) * kind_.recordLength, buffer);
    }
    writeAt(0, old.substr(0, 2) + littleEndian(5, 2) + "1.71    ");
  }

  void reset() {
    clear();
    for (std::size_t i = 0; i < inputs.size(); ++i)
      if (kind_.inputs[i].is == Is::choice) inputs[i] = emptyOf(kind_.inputs[i]);
    previousEnabled = nextEnabled = false;
  }

  void showNothing() {
    clear();
    position() = 0;
    curRec = 0;
    label = kind_.labels.empty;
  }

  /// The present position of the item on the form.
  std::optional<int> itemShown() const {
    if (!inFile) return std::nullopt;
    const int at = kind_.isVideo() ? listPos : curRec;
    if (at >= 1 && at <= count && record(at) == *inFile) return at;
    for (int item = 1; item <= count; ++item)
      if (record(item) == *inFile) return item;
    return std::nullopt;
  }

  /// As if typed; nobody types blanks at the end.
  void putBack(const EditorModel& from) {
    for (std::size_t i = 0; i < inputs.size(); ++i) {
      if (kind_.inputs[i].is == Is::flag) {
        if (inputs[i].number != from.inputs[i].number) tick(i);
        continue;
      }
      inputs[i] = from.inputs[i];
      inputs[i].text = withoutEndBlanks(inputs[i].text);
      inputs[i].padding = 0;
    }
    for (std::size_t entry = 0; entry < list.size(); ++entry)
      list[entry] = {withoutEndBlanks(from.list[entry].text)};
    for (std::string& title : songTitles) title.clear();
  }

  void updateScreen() {
    if (kind_.isVideo() && isDeleted(buffer)) return;
    for (std::size_t i = 0; i < inputs.size(); ++i)
      inputs[i] = heldOf(kind_.inputs[i], buffer, inputs[i]);
    // Negative positions have no blank before them.
    label = kind_.label(curRec, count);
    if (curRec < 0) label.erase(label.find(" -"), 1);
    previousEnabled = curRec != 1;
    nextEnabled = curRec != count;
    for (std::size_t entry = 0; entry < list.size(); ++entry)
      list[entry] = heldOf({kind_.isMusic() ? Is::padded : Is::text, "",
                            kind_.list.offset + entry * ModelList::kWidth, ModelList::kWidth},
                           buffer, {});
    if (kind_.isMusic()) enableLoan();
  }

  bool isTicked(const std::vector<Held>& form, const std::string& name) const {
    for (std::size_t i = 0; i < form.size(); ++i)
      if (name == kind_.inputs[i].name) return form[i].number == 1;
    return false;
  }
  bool ticked(const std::string& name) const { return isTicked(inputs, name); }
  void enableLoan() {
    onLoan = ticked("chkCurrLoaned");
    if (ticked("chkHasBook")) bookLoanedEnabled = onLoan;
  }

  /// What is stored for an input: its contents, or the value for an empty date.
  Held filled(std::size_t input) const {
    const Held& held = inputs[input];
    if (!held.text.empty()) return held;
    if (kind_.inputs[input].fills == Fills::today) return {"11/21/2026"};
    if (kind_.inputs[input].fills == Fills::newYear1980) return {"1/1/80", kDates[0].number};
    return held;
  }

  void fillDates() {
    for (std::size_t i = 0; i < inputs.size(); ++i) inputs[i] = filled(i);
  }

  bool isCondition(std::size_t input) const {
    const ModelInput& row = kind_.inputs[input];
    if (!row.searched) return false;
    if (row.is == Is::flag) return true;
    return row.is == Is::choice ? search[input].number >= 0 : !search[input].text.empty();
  }

  bool matches(const std::string& record) const {
    for (std::size_t i = 0; i < search.size(); ++i)
      if (isCondition(i) && !meets(record, kind_.inputs[i], search[i])) return false;
    return true;
  }

  bool meets(const std::string& record, const ModelInput& input, const Held& wanted) const {
    const std::string bytes = record.substr(input.offset, input.width);
    if (input.is == Is::date)
      return dateShown(numberAt(record, input.offset, 8)) == withoutEndBlanks(wanted.text);
    if (input.is == Is::flag)
      return (numberAt(record, input.offset, 2) != 0) == (wanted.number != 0);
    if (!input.isText()) return bytes == littleEndian(wanted.number, input.width);
    if (kind_.isMedia()) return sameInCapitals(withoutEndBlanks(bytes), wanted.text);
    const bool noDate = input.searchedAsDate && (wanted.text[0] < '1' || wanted.text[0] > '9');
    return bytes == fixedText(noDate ? "" : wanted.text, input.width);
  }
};

}  // namespace quillbox::test
