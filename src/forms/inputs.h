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

/// How a text box shows what its field holds.
enum class Shown {
  plain,         ///< a text without its trailing blanks; a number or a date in its text form
  padded,        ///< a text with its trailing blanks
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

/// One captioned input of a form and the field it shows: a flag in a check box, a choice in a
/// drop-down list, all else in a text box. Rows are made by `input` and what may follow it.
struct InputRow {
  const char* name;     ///< of the control, or of its control array
  const char* caption;  ///< "&" marks the access key
  const Field* field;
  Place place;
  int element = kNoElement;         ///< of the control array
  const char* labelName = nullptr;  ///< of the label, where it has one; an array as the control
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

/// The control of a row, which moves texts, ticks and choices between itself and a record. A record
/// that is not there (nullptr) is that of a new item.
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
  QLabel* label() const { return label_; }  ///< none for a check box, which carries its own

  /// Together with its label.
  void setEnabled(bool enabled);

  virtual void show(std::span<const std::byte> record) = 0;

  /// What the control holds, or what stands for an empty box; the box itself stays empty until
  /// `showFilled`. Run-time error 6 or 13 for what its field cannot hold.
  virtual void store(std::span<std::byte> record) = 0;

  /// Puts into an empty box what was stored for it.
  virtual void showFilled() {}

  virtual Entered entered() const = 0;

  /// What Write Data will make of the text that stands in the box, where that is not what stands
  /// there; or how much room is left near the end of its field.
  virtual QString hint() const { return {}; }

  /// What is put into an empty box, to be shown in it.
  virtual QString placeholder() const { return {}; }

  /// What the control holds, as a text that `putBack` understands: a tick is "1", a choice its
  /// number.
  virtual QString typed() const = 0;

  /// As if the user had typed it. A choice that the list does not hold leaves the selection as it
  /// is.
  virtual void putBack(const QString& typed) = 0;

  virtual bool differs(const Record* record) const = 0;

  /// Empties a text and unticks a box; a list keeps its choice, which is now nobody's.
  virtual void clear() = 0;

  /// Sets a list to none.
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
