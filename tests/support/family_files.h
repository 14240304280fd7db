#pragma once

#include <cstddef>
#include <cstring>
#include <initializer_list>
#include <optional>
#include <ostream>
#include <span>
#include <stdexcept>
#include <string>
#include <string_view>

#include "platform/desktop.h"
#include "records/field.h"
#include "records/field_types.h"
#include "support/test_folder.h"

namespace quillbox::test {

/// An editor of the video-to-book family as a user sees it: its file and its controls.
struct FamilyKind {
  const char* name;  ///< as in its About box
  std::string_view extension;
  std::size_t recordLength;
  const char* formName;
  std::string_view captionPrefix;
  std::string_view designCaption;
  const char* firstBox;     ///< of the text that carries the marker, at the start of the record
  const char* otherBox;     ///< of another text, 50 characters wide
  std::size_t otherOffset;  ///< in the record
  const char* previous;
  const char* next;
  const char* goTo;
  const char* clear;
  const char* deleteItem;  ///< none in the book editor
  const char* write;
  const char* exitCollection;
  const char* printerSetup;
  const char* about;
  const char* contents;
  const char* helpPage;
  const char* indicator = "lblIndex";
  bool hidesDeleted = false;  ///< a deleted item leaves the screen as it is
};

inline constexpr FamilyKind kVideo = {.name = "Video",
                                      .extension = "VCS",
                                      .recordLength = 678,
                                      .formName = "frmVideo",
                                      .captionPrefix = "Video Tape Collection Manager (",
                                      .designCaption = "Video Tape Collection Manager",
                                      .firstBox = "txtVidTitle",
                                      .otherBox = "txtPublisher",
                                      .otherOffset = 552,
                                      .previous = "cmdPrev",
                                      .next = "cmdNext",
                                      .goTo = "Command1",
                                      .clear = "cmdClear",
                                      .deleteItem = "cmdDelete",
                                      .write = "cmdUpdate",
                                      .exitCollection = "ExitCollection",
                                      .printerSetup = "SetupPrinter",
                                      .about = "AboutVideos",
                                      .contents = "ContentVideos",
                                      .helpPage = "video.md",
                                      .hidesDeleted = true};

inline constexpr FamilyKind kSoftware = {.name = "Software",
                                         .extension = "SCS",
                                         .recordLength = 662,
                                         .formName = "frmSoftware",
                                         .captionPrefix = "Software Collection Manager (",
                                         .designCaption = "Software Collection Manager",
                                         .firstBox = "txtSftWare_0",
                                         .otherBox = "txtSftWare_1",
                                         .otherOffset = 610,
                                         .previous = "cmdPrevious",
                                         .next = "cmdNext",
                                         .goTo = "cmdGoTo",
                                         .clear = "cmdClear",
                                         .deleteItem = "cmdDelete",
                                         .write = "cmdUpdate",
                                         .exitCollection = "ExitCollection",
                                         .printerSetup = "PrintSetup",
                                         .about = "AboutSoftware",
                                         .contents = "ContentSoftware",
                                         .helpPage = "software.md"};

inline constexpr FamilyKind kComics = {.name = "Comic",
                                       .extension = "CCS",
                                       .recordLength = 640,
                                       .formName = "frmComics",
                                       .captionPrefix = "Comic Collection Manager (",
                                       .designCaption = "Comic Collection Manager",
                                       .firstBox = "txtCmic_0",
                                       .otherBox = "txtCmic_6",
                                       .otherOffset = 590,
                                       .previous = "cmdPrevious",
                                       .next = "cmdNext",
                                       .goTo = "cmdGoTo",
                                       .clear = "cmdClearData",
                                       .deleteItem = "cmdDelete",
                                       .write = "cmdUpdate",
                                       .exitCollection = "ExitCollection",
                                       .printerSetup = "PrinterSetup",
                                       .about = "AboutComic",
                                       .contents = "ContentComic",
                                       .helpPage = "comics.md"};

// Two blanks in the caption before a collection is open.
inline constexpr FamilyKind kBooks = {.name = "Book",
                                      .extension = "BCS",
                                      .recordLength = 224,
                                      .formName = "frmBooks",
                                      .captionPrefix = "Book Collection Manager (",
                                      .designCaption = "Book Collection  Manager",
                                      .firstBox = "txtBooks_0",
                                      .otherBox = "txtBooks_2",
                                      .otherOffset = 100,
                                      .previous = "cmdPrevious",
                                      .next = "cmdNext",
                                      .goTo = "cmdGoTo",
                                      .clear = "cmdClearData",
                                      .deleteItem = nullptr,
                                      .write = "cmdWriteData",
                                      .exitCollection = "ExitBooks",
                                      .printerSetup = "PrinterSetup",
                                      .about = "AboutBooks",
                                      .contents = "ContentsBooks",
                                      .helpPage = "books.md",
                                      .indicator = "lblBookCap"};

inline void PrintTo(const FamilyKind& kind, std::ostream* out) { *out << kind.name; }

/// The 12 bytes of a header that the program writes for these kinds.
std::string familyHeader(int count);

/// The bytes of a blank item with those two texts.
std::string familyItem(const FamilyKind& kind, std::string_view first, std::string_view other = "");

/// The bytes that Delete leaves of an item.
std::string deletedItem(const FamilyKind& kind);

/// The bytes of a collection of such items; "DELETED" stands for a deleted one.
std::string familyFile(const FamilyKind& kind, std::initializer_list<std::string_view> firsts);

/// The same with that `Count` in the header.
std::string familyFile(const FamilyKind& kind, int count,
                       std::initializer_list<std::string_view> firsts);

/// Item `n` (from 1) of a collection's bytes, which must hold it whole.
std::string itemBytes(const FamilyKind& kind, std::string_view file, int n);

/// The text field there, without the blanks that pad it.
std::string textAt(std::string_view item, std::size_t offset, std::size_t width = 50);

/// A blank record: blanks in texts, zeros elsewhere.
template <typename Record>
Record blankRecord(std::span<const Field> fields) {
  Record record;
  fillBlank(fields, bytesOf(record));
  return record;
}

/// The bytes of a collection of these records.
template <typename Record>
std::string fileOf(std::initializer_list<Record> items) {
  std::string bytes = familyHeader(static_cast<int>(items.size()));
  bytes.resize(sizeof(Record));
  for (const Record& item : items) {
    const auto record = bytesOf(item);
    bytes.append(reinterpret_cast<const char*>(record.data()), record.size());
  }
  return bytes;
}

/// Item `n` (from 1) of a collection's bytes, which must hold it whole.
template <typename Record>
Record recordIn(std::string_view file, int n) {
  Record record;
  const auto at = static_cast<std::size_t>(n) * sizeof record;
  if (file.size() < at + sizeof record) throw std::out_of_range("no such item");
  std::memcpy(&record, file.data() + at, sizeof record);
  return record;
}

/// What users of these editors do, on top of the fixture of all form tests.
template <typename Fixture>
class FamilySteps : public Fixture {
 protected:
  explicit FamilySteps(const FamilyKind& kind) : kind_(kind) {}

  const FamilyKind& kind() const { return kind_; }
  std::string name() const { return "mine." + std::string(kind_.extension); }
  std::string collectionPath() const { return this->path(name()); }

  /// The collection as it stands on disk.
  std::string bytes() { return this->file(name()); }
  std::string stored(int n) { return itemBytes(kind_, bytes(), n); }
  std::string storedFirst(int n) { return textAt(stored(n), 0); }

  /// Puts the collection into the test's folder and starts the program on it.
  void openBytes(std::string_view collection) {
    writeFile(collectionPath(), collection);
    this->restart({collectionPath()});
  }
  void open(std::initializer_list<std::string_view> firsts) {
    openBytes(familyFile(kind_, firsts));
  }

  void expectError(const std::string& numberAndText) {
    this->desktop_.expectMessage("Quillbox", "Run-time error " + numberAndText);
  }
  void expectFileError(const std::string& numberAndText) {
    expectError(numberAndText + "\n" + collectionPath());
  }

  std::string indicator() { return this->label(kind_.indicator); }
  std::string first() { return this->shown(kind_.firstBox); }
  std::string other() { return this->shown(kind_.otherBox); }
  void typeFirst(const std::string& keys) { this->type(kind_.firstBox, keys.c_str()); }
  void typeOther(const std::string& keys) { this->type(kind_.otherBox, keys.c_str()); }

  void pressNext() { this->press(kind_.next); }
  void pressPrevious() { this->press(kind_.previous); }
  void pressClear() { this->press(kind_.clear); }
  void pressWrite() { this->press(kind_.write); }
  void pressGoTo(std::optional<std::string> answer) {
    this->desktop_.expectInput("Record #", "Go To Record", std::move(answer));
    this->press(kind_.goTo);
  }
  void goToInvalid(const std::string& answer) {
    this->desktop_.expectInput("Record #", "Go To Record", answer);
    this->desktop_.expectMessage("Go To Record", "Invalid input?!");
    this->press(kind_.goTo);
  }
  void pressDelete(Answer answer) {
    this->desktop_.expectQuestion("QBX - Music Manager", "Do you really want to delete this?!",
                                  answer);
    this->press(kind_.deleteItem);
  }
  bool previousEnabled() { return this->button(kind_.previous).isEnabled(); }
  bool nextEnabled() { return this->button(kind_.next).isEnabled(); }

 private:
  const FamilyKind& kind_;
};

}  // namespace quillbox::test
