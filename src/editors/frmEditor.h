#pragma once

#include <array>
#include <cstddef>
#include <span>
#include <string>
#include <string_view>

#include "forms/field_sheet.h"
#include "forms/form.h"
#include "records/collection_store.h"

class QLabel;
class QPushButton;

namespace quillbox {

/// The title of the editors' messages.
inline constexpr std::string_view kEditorTitle = "QBX - Music Manager";

/// The commands that every editor has a button for.
enum class Command { previous, next, goTo, clear, deleteItem, write };

struct ButtonRow {
  Command command;
  const char* name;
  const char* caption;
};

/// What an editor form is made of.
struct EditorTables {
  const char* formName;
  const char* indicatorName;  ///< of the label that shows the record indicator
  const char* indicatorText;  ///< before anything is shown
  std::span<const InputRow> inputs;
  std::span<const HeadingRow> headings;
  std::span<const ButtonRow> buttons;  ///< one row for each command, in tab order
};

/// The editor of a collection: shows one item at a time and lets the user step, jump, write, clear
/// and delete. One form of each kind exists; it is loaded each time a collection is opened in it.
class frmEditor : public Form {
 public:
  /// Loads the collection at the current path, then shows the form. A run-time error leaves the
  /// form as it was.
  void open();

 protected:
  frmEditor(Program& program, const CollectionKind& kind, const EditorTables& tables);

  /// Reads or makes the collection at the current path and shows its first item.
  virtual void Form_Load() = 0;

  void Form_Unload() override;

  /// The record buffer of the kind, of its record length.
  virtual std::span<std::byte> buffer() = 0;

  /// Record buffer to controls, record indicator, then `BTEnable`.
  virtual void UpdateScreen();

  /// Controls to record buffer. A run-time error leaves both as they were.
  virtual void GetScreen() = 0;

  /// Empty form, "New Record", new-item mode.
  virtual void ClearData();

  /// Empties the sub-list, just before another item is shown.
  virtual void clearSubList() {}

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
  virtual void cmdDelete_Click();
  void ExitCollection_Click();

  /// Shows what the file holds: item 1, or the empty collection.
  void showFirstItem();
  void showNothing();

  void setFileCaption();
  void showAbout(std::string_view title, std::string_view area);

  CollectionStore& store() { return store_; }
  FieldSheet& sheet() { return *sheet_; }
  QPushButton& button(Command command);

 private:
  void makeButtons(std::span<const ButtonRow> rows, const EditorTables& tables);
  void handle(Command command);
  void showItem(std::int16_t position, std::span<const std::byte> record);
  bool restBetweenLaps(int milliseconds);
  void setControlsEnabled(bool enabled);

  CollectionStore store_;
  FieldSheet* sheet_;
  QLabel* lblIndex_ = nullptr;
  std::array<QPushButton*, 6> buttons_{};
  bool unloaded_ = false;  // since the running handler began
};

}  // namespace quillbox
