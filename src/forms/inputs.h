#pragma once

#include <QString>
#include <cstddef>
#include <functional>
#include <memory>
#include <span>
#include <string>
#include <vector>

#include "forms/controls.h"
#include "platform/desktop.h"
#include "records/entered.h"
#include "records/field.h"

class QLabel;
class QWidget;

namespace quillbox {

/// How a text box shows its field.
enum class Shown {
  plain,         ///< a text without trailing blanks; a number or a date as text
  padded,        ///< a text with trailing blanks
  signedNumber,  ///< an amount with a blank before it when it is not negative
};

/// What an empty box is filled with when it is stored.
enum class WhenEmpty {
  staysEmpty,
  today,        ///< today's date in the platform's short form
  newYear1980,  ///< "1/1/80"
};

/// The place of an input: a row, and the first and the number of the sheet's columns.
struct Place {
  int row;
  int column = 0;
  int columns = kFullWidth;

  static constexpr int kFullWidth = 3;
};

/// One input of a form with its caption and field: a check box for a flag, a drop-down list for a
/// choice, otherwise a text box. Rows are made by `input` and the calls that can follow it.
struct InputRow {
  const char* name;     ///< of the control, or its control array
  const char* caption;  ///< "&" marks the access key
  const Field* field;
  Place place;
  int element = kNoElement;         ///< in the control array
  const char* labelName = nullptr;  ///< of the label, if it has one; an array like the control
  Shown shown = Shown::plain;
  WhenEmpty whenEmpty = WhenEmpty::staysEmpty;

  constexpr InputRow labelled(const char* label) && { return labelName = label, *this; }
  constexpr InputRow inArray(int number) && { return element = number, *this; }
  constexpr InputRow as(Shown how) && { return shown = how, *this; }
  constexpr InputRow filledWith(WhenEmpty what) && { return whenEmpty = what, *this; }
};

constexpr InputRow input(const char* name, const char* caption, const Field* field, Place place) {
  return {.name = name, .caption = caption, .field = field, .place = place};
}

/// The control of a row, which transfers texts, ticks and choices between itself and a record. No
/// record (nullptr) means a new item.
class Input {
 public:
  using Record = std::vector<std::byte>;

  /// The control belongs to `parent`; row and desktop must outlive the input.
  static std::unique_ptr<Input> make(const InputRow& row, Desktop& desktop, QWidget& parent);

  Input(const Input&) = delete;
  Input& operator=(const Input&) = delete;
  virtual ~Input() = default;

  const InputRow& row() const { return row_; }
  QWidget& control() const { return control_; }
  QLabel* label() const { return label_; }  ///< nullptr for a check box, which has its own text

  /// Together with its label.
  void setEnabled(bool enabled);

  virtual void show(std::span<const std::byte> record) = 0;

  /// The contents of the control, or the value for an empty box; the box itself stays empty until
  /// `showFilled`. Run-time error 6 or 13 for what its field cannot hold.
  virtual void store(std::span<std::byte> record) = 0;

  /// Fills an empty box with what was stored for it.
  virtual void showFilled() {}

  virtual Entered entered() const = 0;

  /// What Write Data will store for the text in the box, if that differs from the text; or how much
  /// space is left near the end of its field.
  virtual QString hint() const { return {}; }

  /// What an empty box will be filled with, shown in it as a placeholder.
  virtual QString placeholder() const { return {}; }

  /// The contents of the control as a text for `putBack`: a tick is "1", a choice its number.
  virtual QString typed() const = 0;

  /// As if the user had typed it. For a choice that is not in the list, the selection stays.
  virtual void putBack(const QString& typed) = 0;

  virtual bool differs(const Record* record) const = 0;

  /// Clears a text and unticks a box; a list keeps its entry, which is no longer the user's choice.
  virtual void clear() = 0;

  /// Sets a list to no selection.
  virtual void clearList() {}

  virtual void whenChanged(std::function<void()> changed) = 0;

 protected:
  Input(const InputRow& row, QWidget& control);

  const Field& field() const { return *row_.field; }

 private:
  const InputRow& row_;
  QWidget& control_;
  QLabel* label_ = nullptr;
};

}  // namespace quillbox
