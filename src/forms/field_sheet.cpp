#include "forms/field_sheet.h"

#include <QCheckBox>
#include <QComboBox>
#include <QEvent>
#include <QFontMetrics>
#include <QFrame>
#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QScopedValueRollback>
#include <algorithm>
#include <cassert>

#include "forms/controls.h"
#include "forms/drop_down.h"
#include "forms/qt_text.h"
#include "forms/text_box.h"
#include "records/date_text.h"
#include "records/field_types.h"
#include "records/number_text.h"

namespace quillbox {
namespace {

/// Characters the box of a number or a date takes: room for the longest and a remark behind it.
constexpr int kNumberBoxLength = 50;

QWidget* makeHeading(const HeadingRow& heading) {
  auto* holder = new QWidget;
  auto* row = new QHBoxLayout(holder);
  auto* title = new QLabel(QString::fromUtf8(heading.title));
  QFont font = title->font();
  font.setBold(true);
  title->setFont(font);
  auto* line = new QFrame;
  line->setFrameShape(QFrame::HLine);
  line->setFrameShadow(QFrame::Sunken);
  row->setContentsMargins(0, heading.row == 0 ? 0 : row->spacing(), 0, 0);
  row->addWidget(title);
  row->addWidget(line, 1);
  return holder;
}

}  // namespace

FieldSheet::FieldSheet(std::span<const InputRow> inputs, std::span<const HeadingRow> headings,
                       Desktop& desktop, QWidget* parent)
    : QWidget(parent), desktop_(desktop) {
  auto* grid = new QGridLayout(this);
  grid->setContentsMargins(0, 0, 0, 0);
  for (const HeadingRow& heading : headings)
    grid->addWidget(makeHeading(heading), heading.row, 0, 1, 2 * Place::kFullWidth);
  for (const InputRow& row : inputs) bound_.push_back(makeInput(row, *grid));
  for (int column = 0; column < Place::kFullWidth; ++column)
    grid->setColumnStretch(2 * column + 1, 1);
}

FieldSheet::Bound FieldSheet::makeInput(const InputRow& row, QGridLayout& grid) {
  Bound made{&row, nullptr, nullptr};
  switch (row.kind) {
    case InputKind::textBox: {
      const bool text = row.field->type == FieldType::text;
      auto* box = new TextBox(text ? static_cast<int>(row.field->width) : kNumberBoxLength, this);
      const bool amount = !text && row.field->type != FieldType::date;
      if (amount) box->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
      made.input = box;
      break;
    }
    case InputKind::checkBox:
      made.input = new QCheckBox(QString::fromUtf8(row.caption), this);
      break;
    case InputKind::dropDown: {
      auto* list = new DropDown(this);
      for (const auto choice : row.field->choices) list->addItem(fromRecordText(choice));
      list->setCurrentIndex(-1);
      made.input = list;
      break;
    }
  }
  const QString name = QString::fromUtf8(row.name);
  const QString caption = QString::fromUtf8(row.caption);
  if (row.kind == InputKind::checkBox) {
    made.input->setObjectName(name);
    made.input->setAccessibleName(withoutAccessKey(caption));
  } else {
    made.caption = makeCaption(*made.input, name, caption);
    if (row.captionName != nullptr) made.caption->setObjectName(QString::fromUtf8(row.captionName));
    // Farther from the input before it than from its own.
    if (row.place.column > 0) made.caption->setIndent(fontMetrics().averageCharWidth());
    grid.addWidget(made.caption, row.place.row, 2 * row.place.column);
  }
  grid.addWidget(made.input, row.place.row, 2 * row.place.column + 1, 1, 2 * row.place.columns - 1);
  return made;
}

void FieldSheet::show(std::span<const std::byte> record) {
  const QScopedValueRollback showing(isShowing_, true);
  for (Bound& bound : bound_) showField(bound, record);
}

void FieldSheet::store(std::span<std::byte> record) {
  std::vector<std::byte> stored(record.begin(), record.end());
  for (const Bound& bound : bound_) storeField(bound, stored);
  std::ranges::copy(stored, record.begin());
  for (const Bound& bound : bound_) {
    if (bound.row->whenEmpty == WhenEmpty::staysEmpty) continue;
    auto* box = static_cast<QLineEdit*>(bound.input);
    if (box->text().isEmpty()) box->setText(fromRecordText(textToStore(bound)));
  }
}

std::vector<Entered> FieldSheet::entered() const {
  std::vector<Entered> all;
  for (const Bound& bound : bound_) {
    Entered input{bound.row->field};
    switch (bound.row->kind) {
      case InputKind::textBox:
        input.text = toRecordText(static_cast<QLineEdit*>(bound.input)->text());
        break;
      case InputKind::checkBox:
        input.whole = static_cast<QCheckBox*>(bound.input)->isChecked() ? 1 : 0;
        break;
      case InputKind::dropDown:
        input.whole = checked16(static_cast<QComboBox*>(bound.input)->currentIndex());
        break;
    }
    all.push_back(std::move(input));
  }
  return all;
}

void FieldSheet::takeChoices(const FieldSheet& other) {
  for (const Bound& mine : bound_) {
    if (mine.row->kind != InputKind::dropDown) continue;
    auto& to = static_cast<QComboBox&>(*mine.input);
    const auto& from = static_cast<QComboBox&>(*other.bound(mine.row->name).input);
    const int chosen = to.currentIndex();
    to.clear();
    for (int entry = 0; entry < from.count(); ++entry) to.addItem(from.itemText(entry));
    to.setCurrentIndex(chosen < to.count() ? chosen : -1);
  }
}

std::string FieldSheet::choiceText(const Field& field, int index) const {
  for (const Bound& bound : bound_)
    if (bound.row->kind == InputKind::dropDown && bound.row->field == &field)
      return toRecordText(static_cast<QComboBox*>(bound.input)->itemText(index));
  return {};
}

void FieldSheet::whenChanged(std::function<void()> changed) {
  changed_ = std::move(changed);
  const auto notify = [this] {
    if (!isShowing_) changed_();
  };
  for (const Bound& bound : bound_) {
    switch (bound.row->kind) {
      case InputKind::textBox:
        connect(static_cast<QLineEdit*>(bound.input), &QLineEdit::textChanged, this, notify);
        break;
      case InputKind::checkBox:
        connect(static_cast<QCheckBox*>(bound.input), &QCheckBox::toggled, this, notify);
        break;
      case InputKind::dropDown:
        connect(static_cast<QComboBox*>(bound.input), &QComboBox::currentIndexChanged, this,
                notify);
        break;
    }
  }
}

bool FieldSheet::differsFrom(const std::vector<std::byte>* record) const {
  return std::ranges::any_of(bound_,
                             [this, record](const Bound& bound) { return differs(bound, record); });
}

bool FieldSheet::differs(const Bound& bound, const std::vector<std::byte>* record) const {
  const Field& field = *bound.row->field;
  switch (bound.row->kind) {
    case InputKind::checkBox: {
      const bool stored = record != nullptr && wholeOf(field, *record) != 0;
      return static_cast<QCheckBox*>(bound.input)->isChecked() != stored;
    }
    case InputKind::dropDown: {
      const auto* list = static_cast<QComboBox*>(bound.input);
      const bool listed = record != nullptr && wholeOf(field, *record) < list->count();
      const int expected = listed ? std::max<int>(wholeOf(field, *record), -1) : bound.resting;
      return list->currentIndex() != expected;
    }
    case InputKind::textBox:
      break;
  }
  const QString text = static_cast<QLineEdit*>(bound.input)->text();
  const QString stored = record == nullptr ? QString() : shownText(*bound.row, *record);
  if (withoutTrailingBlanks(text) == withoutTrailingBlanks(stored)) return false;
  if (record == nullptr || field.type == FieldType::text) return true;
  // Another way to write the same number or date.
  std::vector<std::byte> entered = *record;
  try {
    storeField(bound, entered);
  } catch (const RunTimeError&) {
    return true;
  }
  return shownText(*bound.row, entered) != stored;
}

void FieldSheet::clear() {
  const QScopedValueRollback showing(isShowing_, true);
  for (Bound& bound : bound_) {
    switch (bound.row->kind) {
      case InputKind::textBox:
        static_cast<QLineEdit*>(bound.input)->clear();
        break;
      case InputKind::checkBox:
        static_cast<QCheckBox*>(bound.input)->setChecked(false);
        break;
      case InputKind::dropDown:
        bound.resting = static_cast<QComboBox*>(bound.input)->currentIndex();
        break;
    }
  }
}

void FieldSheet::clearLists() {
  const QScopedValueRollback showing(isShowing_, true);
  for (Bound& bound : bound_) {
    if (bound.row->kind != InputKind::dropDown) continue;
    static_cast<QComboBox*>(bound.input)->setCurrentIndex(-1);
    bound.resting = -1;
  }
}

void FieldSheet::showField(Bound& bound, std::span<const std::byte> record) {
  const Field& field = *bound.row->field;
  switch (bound.row->kind) {
    case InputKind::checkBox:
      static_cast<QCheckBox*>(bound.input)->setChecked(wholeOf(field, record) != 0);
      return;
    case InputKind::dropDown: {
      auto* list = static_cast<QComboBox*>(bound.input);
      const int index = wholeOf(field, record);
      if (index < list->count()) list->setCurrentIndex(std::max(index, -1));
      bound.resting = list->currentIndex();
      return;
    }
    case InputKind::textBox:
      break;
  }
  auto* box = static_cast<TextBox*>(bound.input);
  const QString text = shownText(*bound.row, record);
  if (bound.row->shown == Shown::padded)
    box->showPadded(text);
  else
    box->showText(text);
}

QString FieldSheet::shownText(const InputRow& row, std::span<const std::byte> record) const {
  if (row.field->type != FieldType::text)
    return fromUtf8Text(numberText(*row.field, record, row.shown));
  const std::string_view text = upToNul(textOf(*row.field, record));
  return fromRecordText(row.shown == Shown::padded ? text : withoutTrailingBlanks(text));
}

std::string FieldSheet::numberText(const Field& field, std::span<const std::byte> record,
                                   Shown shown) const {
  if (field.type == FieldType::date)
    return dateText(realOf(field, record), desktop_.shortDateForm());
  if (field.type == FieldType::whole) return std::to_string(wholeOf(field, record));
  const std::int64_t amount = moneyOf(field, record);
  return shown == Shown::signedNumber ? signedAmount(amount) : plainAmount(amount);
}

void FieldSheet::storeField(const Bound& bound, std::span<std::byte> record) const {
  const Field& field = *bound.row->field;
  switch (field.type) {
    case FieldType::flag:
      setWhole(field, record, static_cast<QCheckBox*>(bound.input)->isChecked() ? 1 : 0);
      return;
    case FieldType::choice: {
      const int index = static_cast<QComboBox*>(bound.input)->currentIndex();
      setWhole(field, record, checked16(index));
      return;
    }
    case FieldType::text:
      setText(field, record, textToStore(bound));
      return;
    case FieldType::money:
      setMoney(field, record, leadingAmount(textToStore(bound)));
      return;
    case FieldType::whole:
      setWhole(field, record, leadingWhole(textToStore(bound)));
      return;
    case FieldType::date:
      setReal(field, record, dateOf(textToStore(bound), desktop_.shortDateForm()));
      return;
    case FieldType::size:
      return;  // never on a form
  }
}

/// What the box holds, or what is put into it when it is empty.
std::string FieldSheet::textToStore(const Bound& bound) const {
  const QString text = static_cast<QLineEdit*>(bound.input)->text();
  if (text.isEmpty() && bound.row->whenEmpty == WhenEmpty::today)
    return toRecordText(fromUtf8Text(desktop_.todayText()));
  if (text.isEmpty() && bound.row->whenEmpty == WhenEmpty::newYear1980) return "1/1/80";
  return toRecordText(text);
}

void FieldSheet::makeCaptionsClickable() {
  for (const Bound& bound : bound_)
    if (bound.caption != nullptr) bound.caption->installEventFilter(this);
}

bool FieldSheet::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() == QEvent::MouseButtonRelease)
    for (const Bound& bound : bound_)
      if (bound.caption == watched) bound.input->setFocus(Qt::MouseFocusReason);
  return QWidget::eventFilter(watched, event);
}

QLineEdit& FieldSheet::textBox(std::string_view name) {
  return *static_cast<QLineEdit*>(bound(name).input);
}

QCheckBox& FieldSheet::checkBox(std::string_view name) {
  return *static_cast<QCheckBox*>(bound(name).input);
}

QComboBox& FieldSheet::dropDown(std::string_view name) {
  return *static_cast<QComboBox*>(bound(name).input);
}

void FieldSheet::setInputEnabled(std::string_view name, bool enabled) {
  const Bound& found = bound(name);
  found.input->setEnabled(enabled);
  if (found.caption != nullptr) found.caption->setEnabled(enabled);
}

void FieldSheet::focusFirst() { bound_.front().input->setFocus(Qt::OtherFocusReason); }

const FieldSheet::Bound& FieldSheet::bound(std::string_view name) const {
  const auto found = std::ranges::find_if(
      bound_, [name](const Bound& candidate) { return candidate.row->name == name; });
  assert(found != bound_.end());
  return *found;
}

}  // namespace quillbox
