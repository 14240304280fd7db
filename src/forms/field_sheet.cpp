#include "forms/field_sheet.h"

#include <QApplication>
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
#include <utility>

#include "forms/accessible_role.h"
#include "forms/live_hint.h"
#include "forms/qt_text.h"
#include "platform/run_time_error.h"

namespace quillbox {
namespace {

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
  setAccessibleRole(*line, QAccessible::Separator);
  row->setContentsMargins(0, heading.row == 0 ? 0 : row->spacing(), 0, 0);
  row->addWidget(title);
  row->addWidget(line, 1);
  return holder;
}

}  // namespace

FieldSheet::FieldSheet(std::span<const InputRow> inputs, std::span<const HeadingRow> headings,
                       Desktop& desktop, QWidget* parent)
    : QWidget(parent) {
  auto* grid = new QGridLayout(this);
  grid->setContentsMargins({});
  for (const HeadingRow& heading : headings)
    grid->addWidget(makeHeading(heading), heading.row, 0, 1, 2 * Place::kFullWidth);
  for (const InputRow& row : inputs)
    place(*inputs_.emplace_back(Input::make(row, desktop, *this)), *grid);
  for (int column = 0; column < Place::kFullWidth; ++column)
    grid->setColumnStretch(2 * column + 1, 1);
}

void FieldSheet::place(const Input& input, QGridLayout& grid) {
  const auto& [row, column, columns] = input.row().place;
  if (QLabel* label = input.label()) {
    // Farther from the input on its left than from its own.
    if (column > 0) label->setIndent(fontMetrics().averageCharWidth());
    grid.addWidget(label, row, 2 * column);
  }
  grid.addWidget(&input.control(), row, 2 * column + 1, 1, 2 * columns - 1);
}

void FieldSheet::show(std::span<const std::byte> record) {
  const QScopedValueRollback showing(isShowing_, true);
  for (const auto& input : inputs_) input->show(record);
}

void FieldSheet::store(std::span<std::byte> record) {
  std::vector<std::byte> stored(record.begin(), record.end());
  for (const auto& input : inputs_) {
    try {
      input->store(stored);
    } catch (const RunTimeError&) {
      input->control().setFocus(Qt::OtherFocusReason);  // the error is about this input
      throw;
    }
  }
  std::ranges::copy(stored, record.begin());
  for (const auto& input : inputs_) input->showFilled();
}

std::vector<Entered> FieldSheet::entered() const {
  std::vector<Entered> all;
  for (const auto& input : inputs_) all.push_back(input->entered());
  return all;
}

QMap<QString, QString> FieldSheet::typed() const {
  QMap<QString, QString> all;
  for (const auto& input : inputs_) all.insert(input->control().objectName(), input->typed());
  return all;
}

void FieldSheet::putBack(const QMap<QString, QString>& typed) {
  for (const auto& input : inputs_) {
    const auto text = typed.find(input->control().objectName());
    if (text != typed.end()) input->putBack(*text);
  }
}

void FieldSheet::takeChoices(const FieldSheet& other) {
  for (QComboBox* to : findChildren<QComboBox*>()) {
    const QComboBox& from = *other.findChild<QComboBox*>(to->objectName());
    const int chosen = to->currentIndex();
    to->clear();
    for (int entry = 0; entry < from.count(); ++entry) to->addItem(from.itemText(entry));
    to->setCurrentIndex(chosen < to->count() ? chosen : -1);
  }
}

std::string FieldSheet::choiceText(const Field& field, int index) const {
  for (const auto& input : inputs_)
    if (const auto* list = qobject_cast<QComboBox*>(&input->control());
        list != nullptr && *input->row().field == field)
      return toRecordText(list->itemText(index));
  return {};
}

/// A handler that is not called while the sheet itself shows or clears.
std::function<void()> FieldSheet::byUser(std::function<void()> handler) {
  return [this, handler = std::move(handler)] {
    if (!isShowing_) handler();
  };
}

void FieldSheet::whenChanged(const std::function<void()>& changed) {
  for (const auto& input : inputs_) input->whenChanged(byUser(changed));
}

void FieldSheet::whenToggled(const char* name, std::function<void()> toggled) {
  connect(&checkBox(name), &QCheckBox::toggled, this, byUser(std::move(toggled)));
}

bool FieldSheet::tintDifferences(const std::vector<std::byte>* record) {
  bool anyDiffers = false;
  for (const auto& input : inputs_) {
    const bool differs = input->differs(record);
    tintAsChanged(input->control(), differs);
    anyDiffers = anyDiffers || differs;
  }
  return anyDiffers;
}

void FieldSheet::clear() {
  const QScopedValueRollback showing(isShowing_, true);
  for (const auto& input : inputs_) input->clear();
}

void FieldSheet::clearLists() {
  const QScopedValueRollback showing(isShowing_, true);
  for (const auto& input : inputs_) input->clearList();
}

void FieldSheet::showHints() {
  hint_ = new LiveHint(*this);
  for (const auto& each : inputs_) {
    auto* box = qobject_cast<QLineEdit*>(&each->control());
    if (box == nullptr) continue;
    box->setPlaceholderText(each->placeholder());
    const Input& input = *each;
    connect(box, &QLineEdit::textChanged, this, [this, &input] { showHint(input); });
    connect(qApp, &QApplication::focusChanged, box, [this, &input, box](QWidget* before, QWidget*) {
      if (box->hasFocus() || before == box) showHint(input);
    });
  }
}

void FieldSheet::showHint(const Input& input) {
  auto& box = static_cast<QLineEdit&>(input.control());
  if (box.hasFocus() || !box.accessibleDescription().isEmpty())
    hint_->show(box, box.hasFocus() ? input.hint() : QString());
}

void FieldSheet::makeCaptionsClickable() {
  for (QLabel* label : findChildren<QLabel*>())
    if (label->buddy() != nullptr) label->installEventFilter(this);
}

bool FieldSheet::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() == QEvent::MouseButtonRelease)
    if (const auto* label = qobject_cast<QLabel*>(watched))
      label->buddy()->setFocus(Qt::MouseFocusReason);
  return QWidget::eventFilter(watched, event);
}

QLineEdit& FieldSheet::textBox(const char* name) const { return control<QLineEdit>(name); }
QCheckBox& FieldSheet::checkBox(const char* name) const { return control<QCheckBox>(name); }
QComboBox& FieldSheet::dropDown(const char* name) const { return control<QComboBox>(name); }

template <typename Control>
Control& FieldSheet::control(const char* name) const {
  auto* found = findChild<Control*>(QString::fromUtf8(name));
  assert(found != nullptr);
  return *found;
}

void FieldSheet::setInputEnabled(const char* name, bool enabled) {
  const QString wanted = QString::fromUtf8(name);
  for (const auto& input : inputs_)
    if (input->control().objectName() == wanted) input->setEnabled(enabled);
}

void FieldSheet::focusFirst() { inputs_.front()->control().setFocus(Qt::OtherFocusReason); }

}  // namespace quillbox
