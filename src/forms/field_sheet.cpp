#include "forms/field_sheet.h"

#include <QCheckBox>
#include <QComboBox>
#include <QFontMetrics>
#include <QFrame>
#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <algorithm>
#include <cassert>

#include "forms/drop_down.h"
#include "forms/qt_text.h"
#include "forms/text_box.h"
#include "records/field_types.h"
#include "records/number_text.h"

namespace quillbox {
namespace {

/// Characters an amount's box takes: room for the longest amount and a remark behind it.
constexpr int kAmountBoxLength = 50;

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
                       QWidget* parent)
    : QWidget(parent) {
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
      const bool amount = row.field->type == FieldType::money;
      auto* box = new TextBox(amount ? kAmountBoxLength : static_cast<int>(row.field->width), this);
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
  made.input->setObjectName(QString::fromUtf8(row.name));
  made.input->setAccessibleName(withoutAccessKey(row.caption));
  if (row.kind != InputKind::checkBox) {
    made.caption = new QLabel(QString::fromUtf8(row.caption), this);
    made.caption->setBuddy(made.input);
    // Farther from the input before it than from its own.
    if (row.place.column > 0) made.caption->setIndent(fontMetrics().averageCharWidth());
    grid.addWidget(made.caption, row.place.row, 2 * row.place.column);
  }
  grid.addWidget(made.input, row.place.row, 2 * row.place.column + 1, 1, 2 * row.place.columns - 1);
  return made;
}

void FieldSheet::show(std::span<const std::byte> record) {
  for (const Bound& bound : bound_) showField(bound, record);
}

void FieldSheet::store(std::span<std::byte> record) const {
  for (const Bound& bound : bound_) storeField(bound, record);
}

void FieldSheet::clear() {
  for (const Bound& bound : bound_) {
    if (auto* box = qobject_cast<QLineEdit*>(bound.input)) box->clear();
    if (auto* box = qobject_cast<QCheckBox*>(bound.input)) box->setChecked(false);
    if (auto* list = qobject_cast<QComboBox*>(bound.input)) list->setCurrentIndex(-1);
  }
}

void FieldSheet::showField(const Bound& bound, std::span<const std::byte> record) {
  const Field& field = *bound.row->field;
  switch (bound.row->kind) {
    case InputKind::checkBox:
      static_cast<QCheckBox*>(bound.input)->setChecked(wholeOf(field, record) != 0);
      return;
    case InputKind::dropDown: {
      auto* list = static_cast<QComboBox*>(bound.input);
      const int index = wholeOf(field, record);
      if (index < list->count()) list->setCurrentIndex(std::max(index, -1));
      return;
    }
    case InputKind::textBox:
      break;
  }
  auto* box = static_cast<TextBox*>(bound.input);
  switch (bound.row->shown) {
    case Shown::padded:
      box->showPadded(fromRecordText(upToNul(textOf(field, record))));
      return;
    case Shown::plainAmount:
      box->setText(fromUtf8Text(plainAmount(moneyOf(field, record))));
      return;
    case Shown::signedAmount:
      box->setText(fromUtf8Text(signedAmount(moneyOf(field, record))));
      return;
  }
}

void FieldSheet::storeField(const Bound& bound, std::span<std::byte> record) {
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
      setText(field, record, toRecordText(static_cast<QLineEdit*>(bound.input)->text()));
      return;
    case FieldType::money:
      setMoney(field, record,
               leadingAmount(toUtf8Text(static_cast<QLineEdit*>(bound.input)->text())));
      return;
  }
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
