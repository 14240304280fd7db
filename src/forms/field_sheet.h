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

/// A heading over a group of inputs.
struct HeadingRow {
  const char* title;
  int row;
};

/// The captioned inputs of a form, laid out on one grid and bound to the fields of a record. The
/// tab order is that of the table.
class FieldSheet : public QWidget {
 public:
  /// The tables and the desktop must outlive the sheet.
  FieldSheet(std::span<const InputRow> inputs, std::span<const HeadingRow> headings,
             Desktop& desktop, QWidget* parent = nullptr);

  /// Record to controls. A choice that its list does not hold leaves the selection as it is.
  void show(std::span<const std::byte> record);

  /// Controls to record; other fields are left alone. Run-time error 6 for a number beyond its
  /// range and 13 for a text that is no date: controls and record are as they were then.
  void store(std::span<std::byte> record);

  /// What stands in each input, as it would be stored, but nothing put into an empty box.
  std::vector<Entered> entered() const;

  /// What each input holds, by its name, and the same as if the user had typed it.
  QMap<QString, QString> typed() const;
  void putBack(const QMap<QString, QString>& typed);

  /// Tints each input that shows something else than what the record holds; without a record, than
  /// what was left by `clear` and `clearLists`. A choice that its list does not hold is nothing
  /// that a form could show, and makes no difference until the user chooses another. Returns
  /// whether any input differs.
  bool tintDifferences(const std::vector<std::byte>* record);

  /// Offers in each drop-down list what the list of that name on `other` offers.
  void takeChoices(const FieldSheet& other);

  /// The entry that the drop-down list of a field has there, in record characters; empty when it
  /// has none.
  std::string choiceText(const Field& field, int index) const;

  /// `changed` is called when the user, or the program other than by showing and clearing, changes
  /// an input.
  void whenChanged(const std::function<void()>& changed);

  /// The same for one check box, whichever way it is toggled: mouse, keys, assistive technology.
  /// `toggled` must not fail.
  void whenToggled(const char* name, std::function<void()> toggled);

  /// Empties the texts and clears the boxes.
  void clear();

  /// Sets the lists to none.
  void clearLists();

  // The controls by name; the name must be in the table with that kind.
  QLineEdit& textBox(const char* name) const;
  QCheckBox& checkBox(const char* name) const;
  QComboBox& dropDown(const char* name) const;

  /// Enables or disables an input together with its caption; the name must be in the table.
  void setInputEnabled(const char* name, bool enabled);

  /// Puts the focus on the first input.
  void focusFirst();

  /// From now on the box with the focus says what will become of its text, and an empty one what is
  /// put into it.
  void showHints();

  /// From now on clicking a caption puts the focus on its input.
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
