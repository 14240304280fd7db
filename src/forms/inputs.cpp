#include "forms/inputs.h"

#include <QCheckBox>
#include <QLabel>
#include <algorithm>
#include <utility>

#include "forms/drop_down.h"
#include "forms/qt_text.h"
#include "forms/text_box.h"
#include "platform/checked16.h"
#include "platform/run_time_error.h"
#include "text/date_text.h"
#include "text/number_text.h"
#include "text/padding.h"
#include "text/windows1252.h"

namespace quillbox {
namespace {

/// The characters that fit into the box of a number or date: the longest one and a remark.
constexpr int kNumberBoxLength = 50;

class TextInput : public Input {
 public:
  TextInput(const InputRow& row, TextBox& box, Desktop& desktop)
      : Input(row, box), box_(box), desktop_(desktop) {
    const bool amount = field().type == FieldType::money || field().type == FieldType::whole;
    if (amount) box_.setAlignment(Qt::AlignRight | Qt::AlignVCenter);
  }

  void show(std::span<const std::byte> record) override {
    const QString text = shownText(record);
    if (row().shown == Shown::padded)
      box_.showPadded(text);
    else
      box_.showText(text);
  }

  void store(std::span<std::byte> record) override {
    stored_ = textToStore();
    storeText(stored_, record);
  }

  void showFilled() override {
    if (box_.text().isEmpty()) box_.setText(fromRecordText(stored_));
  }

  Entered entered() const override { return {&field(), toRecordText(box_.text())}; }

  QString hint() const override {
    const QString text = withoutTrailingBlanks(box_.text()).toString();
    if (text.isEmpty()) return {};
    return field().type == FieldType::text ? textHint(text) : numberHint(text);
  }

  QString placeholder() const override {
    if (row().whenEmpty == WhenEmpty::today) return QStringLiteral("empty: today");
    return row().whenEmpty == WhenEmpty::newYear1980 ? QStringLiteral("empty: 1/1/80") : QString();
  }

  QString typed() const override { return withoutTrailingBlanks(box_.text()).toString(); }
  void putBack(const QString& typed) override { box_.showText(typed); }

  bool differs(const Record* record) const override {
    const QString stored = record == nullptr ? QString() : shownText(*record);
    if (withoutTrailingBlanks(box_.text()) == withoutTrailingBlanks(stored)) return false;
    if (record == nullptr || field().type == FieldType::text) return true;
    // Another spelling of the same number or date.
    Record entered = *record;
    try {
      storeText(textToStore(), entered);
    } catch (const RunTimeError&) {
      return true;
    }
    return shownText(entered) != stored;
  }

  void clear() override { box_.clear(); }

  void whenChanged(std::function<void()> changed) override {
    QObject::connect(&box_, &QLineEdit::textChanged, &box_, std::move(changed));
  }

 private:
  /// Most people look up only this near the end of a field.
  static constexpr qsizetype kFewLeft = 5;

  QString textHint(const QString& text) const {
    const QString stored = fromRecordText(toRecordText(text));
    for (qsizetype at = 0; at < std::min(text.size(), stored.size()); ++at)
      if (stored[at] != text[at]) return QStringLiteral("%1 becomes ?").arg(text[at]);
    const qsizetype left = static_cast<qsizetype>(field().width) - text.size();
    if (left > kFewLeft) return {};
    return left == 1 ? QStringLiteral("1 character left")
                     : QStringLiteral("%1 characters left").arg(left);
  }

  /// For a text that is no number, or continues after it: the first character that does not fit.
  QString numberHint(const QString& text) const {
    Record record(field().offset + field().width);
    try {
      storeText(toRecordText(text), record);
    } catch (const RunTimeError& error) {
      const bool isDate = error.number() == ErrorNumber::typeMismatch;
      return isDate ? QStringLiteral("not a date") : QStringLiteral("too large");
    }
    if (field().type == FieldType::date) return {};
    const QString stored = fromRecordText(numberText(record)).trimmed();
    bool isNumber = false;
    const bool isSame = text.toDouble(&isNumber) == stored.toDouble();
    return isNumber && isSame ? QString() : QStringLiteral("will be stored as %1").arg(stored);
  }

  QString shownText(std::span<const std::byte> record) const {
    if (field().type != FieldType::text) return fromRecordText(numberText(record));
    const std::string_view text = upToNul(textOf(field(), record));
    return fromRecordText(row().shown == Shown::padded ? text : withoutTrailingBlanks(text));
  }

  std::string numberText(std::span<const std::byte> record) const {
    if (field().type == FieldType::date)
      return dateText(realOf(field(), record), desktop_.shortDateForm());
    if (field().type == FieldType::whole) return std::to_string(wholeOf(field(), record));
    const std::int64_t amount = moneyOf(field(), record);
    return row().shown == Shown::signedNumber ? signedAmount(amount) : plainAmount(amount);
  }

  /// The contents of the box, or the value for an empty box.
  std::string textToStore() const {
    if (!box_.text().isEmpty()) return toRecordText(box_.text());
    if (row().whenEmpty == WhenEmpty::today) return fromUtf8(desktop_.todayText());
    return row().whenEmpty == WhenEmpty::newYear1980 ? "1/1/80" : "";
  }

  void storeText(std::string_view text, std::span<std::byte> record) const {
    if (field().type == FieldType::text)
      setText(field(), record, text);
    else if (field().type == FieldType::money)
      setMoney(field(), record, leadingAmount(text));
    else if (field().type == FieldType::whole)
      setWhole(field(), record, leadingWhole(text));
    else
      setReal(field(), record, dateOf(text, desktop_.shortDateForm()));
  }

  TextBox& box_;
  Desktop& desktop_;
  std::string stored_;  // the last one; the value for an empty box is requested only once
};

class CheckInput : public Input {
 public:
  CheckInput(const InputRow& row, QCheckBox& box) : Input(row, box), box_(box) {}

  void show(std::span<const std::byte> record) override {
    box_.setChecked(wholeOf(field(), record) != 0);
  }
  void store(std::span<std::byte> record) override { setWhole(field(), record, ticked()); }
  Entered entered() const override { return {.field = &field(), .whole = ticked()}; }
  QString typed() const override { return QString::number(ticked()); }
  void putBack(const QString& typed) override { box_.setChecked(typed.toInt() != 0); }
  bool differs(const Record* record) const override {
    return box_.isChecked() != (record != nullptr && wholeOf(field(), *record) != 0);
  }
  void clear() override { box_.setChecked(false); }
  void whenChanged(std::function<void()> changed) override {
    QObject::connect(&box_, &QCheckBox::toggled, &box_, std::move(changed));
  }

 private:
  std::int16_t ticked() const { return box_.isChecked() ? 1 : 0; }

  QCheckBox& box_;
};

/// For a choice that is not in the list, the selection stays.
class ListInput : public Input {
 public:
  ListInput(const InputRow& row, DropDown& list) : Input(row, list), list_(list) {
    for (const auto choice : field().choices) list_.addItem(fromRecordText(choice));
    list_.setCurrentIndex(-1);
  }

  void show(std::span<const std::byte> record) override {
    if (isListed(record)) list_.setCurrentIndex(choiceOf(record));
    resting_ = list_.currentIndex();
  }
  void store(std::span<std::byte> record) override { setWhole(field(), record, chosen()); }
  Entered entered() const override { return {.field = &field(), .whole = chosen()}; }
  QString typed() const override { return QString::number(list_.currentIndex()); }
  void putBack(const QString& typed) override {
    const int index = typed.toInt();
    if (index >= -1 && index < list_.count()) list_.setCurrentIndex(index);
  }
  bool differs(const Record* record) const override {
    const bool listed = record != nullptr && isListed(*record);
    return list_.currentIndex() != (listed ? choiceOf(*record) : resting_);
  }
  void clear() override { resting_ = list_.currentIndex(); }
  void clearList() override {
    list_.setCurrentIndex(-1);
    resting_ = -1;
  }
  void whenChanged(std::function<void()> changed) override {
    QObject::connect(&list_, &QComboBox::currentIndexChanged, &list_, std::move(changed));
  }

 private:
  bool isListed(std::span<const std::byte> record) const {
    return wholeOf(field(), record) < list_.count();
  }
  int choiceOf(std::span<const std::byte> record) const {
    return std::max<int>(wholeOf(field(), record), -1);
  }
  std::int16_t chosen() const { return checked16(list_.currentIndex()); }

  DropDown& list_;
  int resting_ = -1;  // selected, but not by the user since the list was shown or cleared
};

}  // namespace

std::unique_ptr<Input> Input::make(const InputRow& row, Desktop& desktop, QWidget& parent) {
  switch (row.field->type) {
    case FieldType::flag:
      return std::make_unique<CheckInput>(row,
                                          *new QCheckBox(QString::fromUtf8(row.caption), &parent));
    case FieldType::choice:
      return std::make_unique<ListInput>(row, *new DropDown(&parent));
    case FieldType::text:
      return std::make_unique<TextInput>(
          row, *new TextBox(static_cast<int>(row.field->width), &parent), desktop);
    default:
      return std::make_unique<TextInput>(row, *new TextBox(kNumberBoxLength, &parent), desktop);
  }
}

Input::Input(const InputRow& row, QWidget& control) : row_(row), control_(control) {
  const QString name = controlName(row.name, row.element);
  const QString caption = QString::fromUtf8(row.caption);
  if (row.field->type == FieldType::flag) {
    nameControl(control, name, caption);
    return;
  }
  label_ = makeCaption(control, name, caption);
  if (row.labelName != nullptr) label_->setObjectName(controlName(row.labelName, row.element));
}

void Input::setEnabled(bool enabled) {
  control_.setEnabled(enabled);
  if (label_ != nullptr) label_->setEnabled(enabled);
}

}  // namespace quillbox
