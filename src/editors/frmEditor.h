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

/// The parts of an editor form.
struct EditorTables {
  const char* formName;
  const char* indicatorName = "lblIndex";   ///< the label with the record indicator
  const char* indicatorText = "Record #:";  ///< before anything is shown
  std::span<const InputRow> inputs;
  std::span<const HeadingRow> headings = {};
  std::span<const ButtonRow> buttons;  ///< in tab order
  std::span<const MenuRow> menus;
  const char* aboutTitle;
  const char* aboutArea;
  const char* helpPage;          ///< of the manual
  SearchPage search;             ///< the inputs that the search form repeats
  const char* setupDialog = "";  ///< the printer's dialog, if it has a name
};

/// The editor of a collection: shows one item at a time and has commands to step, jump, write,
/// clear and delete. There is one form for each kind; it is loaded each time it opens a collection.
class frmEditor : public Form {
 public:
  /// Loads a collection, then shows the form. `opening` has the path and kind, and whether the file
  /// is to be created; the rest is kept from what was open before. A run-time error leaves the
  /// form, and what is open, unchanged.
  void open(OpenCollection opening);

  void keepTyped() override;
  void setVisible(bool visible) override;

  /// Leaves the form and the collection before another one is opened.
  void leave() { Undraw(); }

 protected:
  void changeEvent(QEvent* event) override;

  using Record = std::vector<std::byte>;

  /// All editors share one print engine.
  frmEditor(Program& program, PrintEngine& printEngine, const CollectionKind& kind,
            const EditorTables& tables);

  /// Reads or creates the collection, takes it over and shows its first item. A run-time error
  /// leaves the form, and what is open, unchanged.
  virtual void Form_Load(OpenCollection& opening) = 0;

  void Form_Unload() override { ExitCollection_Click(); }
  void closeWhileBusy() override { isLeaving_ = true; }

  /// Carries out the command of a button or a menu item.
  virtual void choose(Command command);

  /// Record buffer to controls, record indicator, then `BTEnable`.
  virtual void UpdateScreen();

  /// Controls to record: the record buffer or a copy of it. A run-time error leaves both unchanged.
  virtual void GetScreen(std::span<std::byte> record);

  /// Empty form, "New Record", new-item mode.
  virtual void ClearData();

  /// Whether the sub-list differs from the record or, without one, has any entries.
  virtual bool subListDiffers(const Record* /*record*/) const { return false; }

  /// Empties the sub-list, just before another item is shown.
  virtual void clearSubList() {}

  /// The entries of the sub-list, and setting them as if the user had typed them.
  virtual QStringList subList() const { return {}; }
  virtual void putBackSubList(const QStringList& /*entries*/) {}

  /// The form is about to change: text not written is kept, and the user is told so, unless the
  /// form closes as well.
  void leaveTyped(bool tells = true);

  /// The form now shows what the program has put there: nobody typed it.
  void noteShown();

  /// An empty form for a new item; its former contents are written or kept.
  void startNewItem();

  // What the file now has at the position: that record, or nothing, as for a new item.
  void noteStored(std::span<const std::byte> record);
  void noteNothingStored();

  /// Shows where the form differs from its item: the mark beside the record indicator, and a tint.
  /// Text is kept after a moment in case the program is killed.
  void updateNotWritten();
  void updateMark();

  /// The form that shows the item now: this one, or its second page.
  virtual Form& formOnScreen() { return *this; }

  /// Shows a status, unless the same command has already offered an action there.
  void tell(const QString& text);

  virtual void setRecordLabel(const std::string& text);
  std::string recordLabelText() const;

  /// Enables Previous unless `point` is 1 and Next unless it is `Count`.
  void BTEnable(int point);

  // The handlers, named after the controls of the music editor, which the others follow.
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

  /// The file type that New File writes to the header.
  virtual int newFileType() const { return store_.kind().rules.fileType; }

  /// What follows storing a new item: a form for the next one.
  virtual void afterNewItem() { startNewItem(); }

  /// The form before anything was shown on it; Previous and Next are disabled.
  virtual void resetForm();

  // The parts of Form_Load. Everything that can fail comes first, on `opening`; only then do the
  // state and the form change.

  /// The collection being opened, by the rules of this editor's kind.
  CollectionStore storeOf(const OpenCollection& opening);

  /// Creates an empty collection with that file type.
  void makeFile(OpenCollection& opening, int fileType);

  /// Item 1; nothing when the collection is empty.
  std::optional<Record> readFirstItem(CollectionStore store, int count);

  /// From now on this collection is open.
  void takeOver(const OpenCollection& opened);

  // The position and the record buffer change here. None of these can fail.

  void showItem(std::int16_t position, std::span<const std::byte> record);
  void showNothing();  ///< on a form that was just reset
  /// Shows item 1 or, on a form that was just reset, the empty collection.
  void showFirstItem(const std::optional<Record>& first);
  /// The new `Count`, with all its effects on the form.
  void takeCount(std::int16_t count);
  void takeBuffer(std::span<const std::byte> record);

  void readAndShow(int item);

  /// The window's caption and icon.
  void setFileCaption(const CollectionKind& kind);

  /// Shows a message with the editor's own title.
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

  // Text that was typed and not written, in frmEditor_typed.cpp.
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
    bool isBegun = false;  ///< writing failed: the item may be half old, half new
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
  bool isLeft_ = false;           // the form shows an item of a collection that is no longer open
  KeptText shown_;                // what the program itself put on the form
  std::optional<KeptTexts> kept_;  // of the open collection
  QTimer keepSoon_;
  std::map<Command, QPushButton*> buttons_;
  std::unique_ptr<frmSort> sort_;  // created when first shown
  std::unique_ptr<frmSearch> search_;
  /// Where a new item was being written when writing failed. It comes from a scan, and must be used
  /// at once: opening, and any command other than Write Data and Clear Data, clears it.
  std::optional<std::int16_t> slot_;
  Panel* panel_ = nullptr;  // none while closed
  QToolButton* panelButton_ = nullptr;
  bool isLeaving_ = false;  // the window was closed while Previous was searching
};

}  // namespace quillbox
