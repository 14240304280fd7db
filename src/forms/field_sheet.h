#pragma once

#include <QWidget>
#include <cstddef>
#include <functional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "platform/desktop.h"
#include "records/field.h"

class QCheckBox;
class QComboBox;
class QGridLayout;
class QLabel;
class QLineEdit;

namespace quillbox {

enum class InputKind { textBox, checkBox, dropDown };

/// How a text box shows what its field holds.
enum class Shown {
  padded,        ///< the text with its trailing blanks
  trimmed,       ///< the text without them
  number,        ///< an amount, a whole number or a date in its text form
  signedNumber,  ///< an amount with a blank before it when it is not negative
};

/// What is put into a box that is empty when it is stored.
enum class WhenEmpty {
  staysEmpty,
  today,        ///< today's date as the platform's short date text
  newYear1980,  ///< "1/1/80"
};

/// Where an input stands: a row, and the first and the number of the sheet's columns it takes.
struct Place {
  int row;
  int column = 0;
  int columns = kFullWidth;

  static constexpr int kFullWidth = 3;
};

/// One captioned input of a form and the field it shows.
struct InputRow {
  InputKind kind;
  const char* name;     ///< of the control
  const char* caption;  ///< "&" marks the access key
  const Field* field;
  Place place;
  Shown shown = Shown::trimmed;
  const char* captionName = nullptr;  ///< of the label, where it has one
  WhenEmpty whenEmpty = WhenEmpty::staysEmpty;
};

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

  /// Offers in each drop-down list what the list of that name on `other` offers.
  void takeChoices(const FieldSheet& other);

  /// The entry that the drop-down list of a field has there, in record characters; empty when it
  /// has none.
  std::string choiceText(const Field& field, int index) const;

  /// Whether an input shows something else than what the record holds; without a record, than what
  /// was left by `clear` and `clearLists`. A choice that its list does not hold is nothing that a
  /// form could show, and makes no difference until the user chooses another.
  bool differsFrom(const std::vector<std::byte>* record) const;

  /// `changed` is called when the user, or the program other than by showing and clearing, changes
  /// an input.
  void whenChanged(std::function<void()> changed);

  /// Empties the texts and clears the boxes.
  void clear();

  /// Sets the lists to none.
  void clearLists();

  // The controls by name; the name must be in the table with that kind.
  QLineEdit& textBox(std::string_view name);
  QCheckBox& checkBox(std::string_view name);
  QComboBox& dropDown(std::string_view name);

  /// Enables or disables an input together with its caption.
  void setInputEnabled(std::string_view name, bool enabled);

  /// Puts the focus on the first input.
  void focusFirst();

  /// From now on clicking a caption puts the focus on its input.
  void makeCaptionsClickable();

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  struct Bound {
    const InputRow* row;
    QWidget* input;
    QLabel* caption;   // none for a check box, which carries its own
    int resting = -1;  // the entry of a list that nobody chose since the sheet was shown or cleared
  };

  const Bound& bound(std::string_view name) const;
  Bound makeInput(const InputRow& row, QGridLayout& grid);
  void showField(Bound& bound, std::span<const std::byte> record);
  QString shownText(const InputRow& row, std::span<const std::byte> record) const;
  std::string numberText(const Field& field, std::span<const std::byte> record, Shown shown) const;
  bool differs(const Bound& bound, const std::vector<std::byte>* record) const;
  void storeField(const Bound& bound, std::span<std::byte> record) const;
  std::string textToStore(const Bound& bound) const;

  Desktop& desktop_;
  std::vector<Bound> bound_;
  std::function<void()> changed_;
  bool isShowing_ = false;
};

}  // namespace quillbox
