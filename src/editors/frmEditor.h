#pragma once

#include <QTimer>
#include <array>
#include <cstddef>
#include <map>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "editors/frmEditor_commands.h"
#include "forms/field_sheet.h"
#include "forms/form.h"
#include "forms/kept_texts.h"
#include "records/collection_store.h"
#include "records/record_texts.h"
#include "sortsearch/frmSearch.h"
#include "sortsearch/frmSort.h"

class QLabel;
class QPushButton;
class QToolButton;

namespace quillbox {

class Listing;
class Panel;
class PrintEngine;
class WrappingRow;
struct FoundItem;

/// What an editor form is made of.
struct EditorTables {
  const char* formName;
  const char* indicatorName = "lblIndex";   ///< of the label that shows the record indicator
  const char* indicatorText = "Record #:";  ///< before anything is shown
  std::span<const InputRow> inputs;
  std::span<const HeadingRow> headings = {};
  std::span<const ButtonRow> buttons;  ///< in tab order
  std::span<const MenuRow> menus;
  const char* aboutTitle;
  const char* aboutArea;
  const char* helpPage;          ///< of the manual
  SearchPage search;             ///< what of the inputs the search form repeats
  const char* setupDialog = "";  ///< of the printer, where it has a name
};

/// The editor of a collection: shows one item at a time and lets the user step, jump, write, clear
/// and delete. One form of each kind exists; it is loaded each time a collection is opened in it.
class frmEditor : public Form {
 public:
  /// Loads a collection, then shows the form. `opening` says what: its path and kind, and whether
  /// it is to be made; the rest is carried over from what was open before. A run-time error leaves
  /// the form, and what is open, as they were.
  void open(OpenCollection opening);

  void keepTyped() override;
  void setVisible(bool visible) override;

  /// Leaves the form and the collection, for another one to be opened.
  void leave() { Undraw(); }

 protected:
  void changeEvent(QEvent* event) override;

  using Record = std::vector<std::byte>;

  /// The engine is the one that all editors print with.
  frmEditor(Program& program, PrintEngine& printEngine, const CollectionKind& kind,
            const EditorTables& tables);

  /// Reads or makes that collection, takes it over and shows its first item. A run-time error
  /// leaves the form, and what is open, as they were.
  virtual void Form_Load(OpenCollection& opening) = 0;

  void Form_Unload() override { ExitCollection_Click(); }
  void closeWhileBusy() override { isLeaving_ = true; }

  /// Does what a button or a menu item stands for.
  virtual void choose(Command command);

  /// Record buffer to controls, record indicator, then `BTEnable`.
  virtual void UpdateScreen();

  /// Controls to record, which is the record buffer or a copy of it. A run-time error leaves both
  /// as they were.
  virtual void GetScreen(std::span<std::byte> record);

  /// Empty form, "New Record", new-item mode.
  virtual void ClearData();

  /// Whether the sub-list holds anything else than that record, or anything at all when there is
  /// none.
  virtual bool subListDiffers(const Record* /*record*/) const { return false; }

  /// Empties the sub-list, just before another item is shown.
  virtual void clearSubList() {}

  /// The entries of the sub-list as they stand, and the same as if the user had typed them.
  virtual QStringList subList() const { return {}; }
  virtual void putBackSubList(const QStringList& /*entries*/) {}

  /// What is on the form goes: text in it that is not written is kept, and the user told so, unless
  /// the form goes with it.
  void leaveTyped(bool tells = true);

  /// What is on the form by now was shown by program: nobody typed it.
  void noteShown();

  /// An empty form for a new item; what was on it is written or kept.
  void startNewItem();

  // What the file holds at the position by now: that record, or nothing, as for a new item.
  void noteStored(std::span<const std::byte> record);
  void noteNothingStored();

  /// Shows where the form holds what its item does not: the mark beside the record indicator, and a
  /// tint. Text that stands so for a moment is kept in case the program is killed.
  void updateNotWritten();
  void updateMark();

  /// The form that shows the item at the moment: this one, or its second page.
  virtual Form& formOnScreen() { return *this; }

  /// Shows a status, unless the same command has something to offer.
  void tell(const QString& text);

  virtual void setRecordLabel(const std::string& text);
  std::string recordLabelText() const;

  /// Enables Previous unless `point` is 1 and Next unless it is `Count`.
  void BTEnable(int point);

  // The handlers, named after the controls of the music editor, the model of all others.
  void cmdNext_Click();
  void cmdPrevious_Click();
  void cmdGoto_Click();
  void cmdWriteData_Click();
  void cmdClearData_Click();
  void cmdDelete_Click();
  void Duplicate();
  void BringBack();
  void ExitCollection_Click();
  void OpenFile_Click();
  void NewFile_Click();
  void SortRecords_Click();
  void SearchRecords_Click();
  void PrintList_Click();
  void PrinterSetup_Click();
  void ExportData_Click();

  /// The file type in the header that New File writes.
  virtual int newFileType() const { return store_.kind().rules.fileType; }

  /// What follows the storing of a new item: a form for the next one.
  virtual void afterNewItem() { startNewItem(); }

  /// The form as it is before anything was ever shown on it; Previous and Next are disabled.
  virtual void resetForm();

  // What Form_Load is made of. Everything that can fail comes first, on `opening`; only then are
  // the state and the form touched.

  /// The collection that is being opened, as this editor's kind reads and writes it.
  CollectionStore storeOf(const OpenCollection& opening);

  /// Makes an empty collection with that file type.
  void makeFile(OpenCollection& opening, int fileType);

  /// Item 1; nothing when the collection is empty.
  std::optional<Record> readFirstItem(CollectionStore store, int count);

  /// From now on this is the collection that is open.
  void takeOver(const OpenCollection& opened);

  // The places where the position and the record buffer change. None of them can fail.

  void showItem(std::int16_t position, std::span<const std::byte> record);
  void showNothing();
  /// Shows item 1, or the empty collection.
  void showFirstItem(const std::optional<Record>& first);
  /// `Count` as it has become, and what follows from it on the form.
  void takeCount(std::int16_t count);
  void takeBuffer(std::span<const std::byte> record);

  void readAndShow(int item);

  /// The window's caption and icon.
  void setFileCaption(const CollectionKind& kind);

  /// Shows a message under the editor's own title.
  void say(std::string_view text) { program().message(store_.kind().rules.messageTitle, text); }

  CollectionStore& store() { return store_; }
  FieldSheet& sheet() { return *sheet_; }
  std::span<std::byte> buffer() { return store_.kind().buffer(state()); }
  std::int16_t& position() { return state().*store_.kind().position; }
  bool stepsByListPos() const { return store_.kind().position == &OpenCollection::ListPos; }
  QPushButton& button(Command command) { return *buttons_.at(command); }

 private:
  QWidget* makeIndicator();
  WrappingRow* makeButtons();
  void makeMenus();
  void makeKeys();
  bool restBetweenLaps(int milliseconds);
  void setControlsEnabled(bool enabled);
  void Undraw();
  void showSorted(std::int16_t count);

  // Text that is typed and not written, in frmEditor_typed.cpp.
  KeptText typedText();
  bool holdsTyped();
  void offerBringBack(const QString& told);
  void tellWhatIsMissing();
  void offerKeptText();
  std::optional<std::int16_t> itemOf(const KeptText& text);
  void noteWritten(const KeptText& written);
  struct Undo {
    const char* name;  ///< of the button
    const char* caption;
    std::int16_t item;
    Record before;
    Record after;
    bool isBegun = false;  ///< writing failed: the item may be half of each
  };
  void offerUndo(const QString& told, Undo undo);
  void takeBack(const QString& told, Undo undo);
  void showFound(const FoundItem& found);
  RecordTexts recordTexts();
  Listing listing();

  // The panel with all items, in frmEditor_panel.cpp.
  const CollectionKind& openKind();
  void makePanelButton();
  void togglePanel();
  void showPanel(bool shown, bool grows);
  void openKeptPanel();
  void findInPanel();
  void markInPanel();
  void panelTakes(int item, std::span<const std::byte> record);
  void writing(const std::optional<std::int16_t>& item, const std::function<void()>& write);

  CollectionStore store_;
  PrintEngine& printEngine_;
  const EditorTables& tables_;
  FieldSheet* sheet_;
  QLabel* lblIndex_ = nullptr;
  QLabel* lblNotWritten_ = nullptr;
  std::optional<Record> stored_;  // the item at the position as it is in the file; none: a new item
  bool isMarked_ = false;         // the form differs from that
  bool isLeft_ = false;  // what is on the form is of a collection that is not open any more
  KeptText shown_;       // what the program itself has put on the form
  std::optional<KeptTexts> kept_;  // of the open collection
  QTimer keepSoon_;
  std::map<Command, QPushButton*> buttons_;
  std::unique_ptr<frmSort> sort_;  // made when they are first shown
  std::unique_ptr<frmSearch> search_;
  /// Where a new item was being written when writing failed. It is known from a scan that nothing
  /// may have come after: any command but Write Data and Clear Data, and opening, forget it.
  std::optional<std::int16_t> slot_;
  Panel* panel_ = nullptr;  // none while it is closed
  QToolButton* panelButton_ = nullptr;
  bool isLeaving_ = false;  // the window was closed while Previous went on searching
};

}  // namespace quillbox
