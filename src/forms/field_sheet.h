#pragma once

#include <QMap>
#include <QWidget>
#include <cstddef>
#include <functional>
#include <memory>
#include <span>
#include <string>
#include <vector>

#include "forms/inputs.h"

class QCheckBox;
class QComboBox;
class QGridLayout;
class QLineEdit;

namespace quillbox {

class LiveHint;

/// A heading above a group of inputs.
struct HeadingRow {
  const char* title;
  int row;
};

/// A form's inputs and captions, laid out on one grid and bound to the fields of a record. The tab
/// order is that of the table.
class FieldSheet : public QWidget {
 public:
  /// The tables and the desktop must outlive the sheet.
  FieldSheet(std::span<const InputRow> inputs, std::span<const HeadingRow> headings,
             Desktop& desktop, QWidget* parent = nullptr);

  /// Record to controls. For a choice that is not in its list, the selection stays.
  void show(std::span<const std::byte> record);

  /// Controls to record; other fields are unchanged. Run-time error 6 for a number outside its
  /// range and 13 for a text that is no date; controls and record are then unchanged.
  void store(std::span<std::byte> record);

  /// The contents of each input, as they would be stored, without filling empty boxes.
  std::vector<Entered> entered() const;

  /// The contents of each input by its name, and setting them as if the user had typed them.
  QMap<QString, QString> typed() const;
  void putBack(const QMap<QString, QString>& typed);

  /// Tints each input whose contents differ from the record or, without one, from the state after
  /// `clear` and `clearLists`. A choice that is not in its list cannot be shown, and makes no
  /// difference until the user makes another one. Returns whether any input differs.
  bool tintDifferences(const std::vector<std::byte>* record);

  /// Fills each drop-down list with the entries of the list of that name on `other`.
  void takeChoices(const FieldSheet& other);

  /// An entry of a field's drop-down list, in record characters; empty when there is none.
  std::string choiceText(const Field& field, int index) const;

  /// `changed` is called when the user changes an input, or the program does other than by showing
  /// and clearing.
  void whenChanged(const std::function<void()>& changed);

  /// The same for one check box, however it is toggled: mouse, keys, assistive technology.
  /// `toggled` must not fail.
  void whenToggled(const char* name, std::function<void()> toggled);

  /// Clears the texts and the check boxes.
  void clear();

  /// Sets the lists to no selection.
  void clearLists();

  // The controls by name; the table must have one of that type by that name.
  QLineEdit& textBox(const char* name) const;
  QCheckBox& checkBox(const char* name) const;
  QComboBox& dropDown(const char* name) const;

  /// Enables or disables an input and its caption; the name must be in the table.
  void setInputEnabled(const char* name, bool enabled);

  /// Puts the focus on the first input.
  void focusFirst();

  /// From now on the box with the focus shows what will become of its text, and an empty box what
  /// it will be filled with.
  void showHints();

  /// From now on clicking a caption moves the focus to its input.
  void makeCaptionsClickable();

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void place(const Input& input, QGridLayout& grid);
  template <typename Control>
  Control& control(const char* name) const;
  void showHint(const Input& input);
  std::function<void()> byUser(std::function<void()> handler);

  std::vector<std::unique_ptr<Input>> inputs_;
  LiveHint* hint_ = nullptr;
  bool isShowing_ = false;
};

}  // namespace quillbox
