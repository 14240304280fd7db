#include "support/form_fixture.h"

#include <QAccessible>
#include <QApplication>
#include <QTextBrowser>
#include <QWindow>
#include <algorithm>
#include <stdexcept>
#include <vector>

#include "editors/frmEditor.h"
#include "forms/about.h"
#include "forms/form.h"
#include "forms/help_window.h"
#include "forms/qt_text.h"
#include "support/family_files.h"
#include "text/padding.h"

namespace quillbox::test {

FormTest::FormTest() { QLocale::setDefault(QLocale::c()); }

FormTest::~FormTest() = default;

void FormTest::start(std::initializer_list<std::string> arguments) {
  // When a test restarts the program, its forms are destroyed before the program that lists them.
  modQBX1_.reset();
  program_.reset();
  state_ = std::make_unique<AppState>(files_);
  program_ = std::make_unique<Program>(*state_, desktop_);
  if (windowPlaces_ != nullptr) program_->setWindowPlaces(*windowPlaces_);
  program_->setTypedFolder(typedFolder_);
  if (recents_ != nullptr) program_->setRecents(*recents_);
  modQBX1_ = std::make_unique<modQBX1>(*program_);
  desktop_.expectMessage("QBX V1.71", aboutText(), MessageIcon::information);
  // Boxes a test expects at start-up follow the start-up box.
  desktop_.moveLastToFront();
  const std::vector<std::string> line(arguments);
  program_->run([&] { modQBX1_->Main(line); });
  QApplication::processEvents();
}

QMainWindow& FormTest::form() {
  std::vector<QMainWindow*> visible;
  for (QWidget* widget : QApplication::topLevelWidgets())
    if (auto* found = dynamic_cast<Form*>(widget); found != nullptr && found->isVisible())
      visible.push_back(found);
  EXPECT_EQ(visible.size(), 1U) << "forms on screen";
  if (visible.empty()) throw std::runtime_error("an empty desktop");
  return *visible.front();
}

QMainWindow& FormTest::formNamed(const char* name) {
  for (QWidget* widget : QApplication::topLevelWidgets())
    if (auto* found = dynamic_cast<Form*>(widget);
        found != nullptr && found->objectName() == QLatin1String(name))
      return *found;
  ADD_FAILURE() << name << " was never made";
  throw std::runtime_error("no such form");
}

std::string FormTest::formName() { return toUtf8Text(form().objectName()); }

void FormTest::openHere(const std::string& path, bool isNew) {
  OpenCollection opening = *state_;
  opening.currentPath = path;
  opening.newCollection = isNew;
  auto& editor = dynamic_cast<frmEditor&>(form());
  program_->run([&] { editor.open(opening); });
}

std::string FormTest::caption() { return toUtf8Text(form().windowHandle()->title()); }

std::string FormTest::label(const char* name) { return toUtf8Text(control<QLabel>(name).text()); }

std::string FormTest::shown(const char* name) { return toUtf8Text(box(name).text()); }

void FormTest::press(const char* name) {
  QPushButton& pressed = button(name);
  EXPECT_TRUE(pressed.isEnabled()) << name;
  QTest::mouseClick(&pressed, Qt::LeftButton);
  QApplication::processEvents();
}

void FormTest::tick(const char* name) {
  QCheckBox& ticked = check(name);
  EXPECT_TRUE(ticked.isEnabled()) << name;
  ticked.setFocus();
  QTest::keyClick(&ticked, Qt::Key_Space);
}

void FormTest::toggle(const char* name) {
  auto* actions = QAccessible::queryAccessibleInterface(&check(name))->actionInterface();
  actions->doAction(QAccessibleActionInterface::toggleAction());
}

void FormTest::choose(const char* name) {
  auto& action = control<QAction>(name);
  EXPECT_TRUE(action.isEnabled()) << name;
  action.trigger();
  QApplication::processEvents();
}

void FormTest::type(const char* name, const char* keys) {
  QLineEdit& typedInto = box(name);
  EXPECT_TRUE(typedInto.isEnabled()) << name;
  typedInto.setFocus();
  QTest::keyClick(&typedInto, Qt::Key_A, Qt::ControlModifier);
  QTest::keyClick(&typedInto, Qt::Key_Delete);
  for (const QChar key : QString::fromUtf8(keys))
    QTest::sendKeyEvent(QTest::Click, &typedInto, Qt::Key_unknown, QString(key), Qt::NoModifier);
}

void FormTest::pick(const char* name, int index) {
  QComboBox& picked = list(name);
  picked.setFocus();
  QTest::keyClick(&picked, Qt::Key_Home);
  for (int i = 0; i < index; ++i) QTest::keyClick(&picked, Qt::Key_Down);
  EXPECT_EQ(picked.currentIndex(), index) << name;
}

std::string FormTest::helpPage() {
  for (const QWidget* widget : QApplication::topLevelWidgets())
    if (dynamic_cast<const HelpWindow*>(widget) != nullptr && widget->isVisible())
      return toUtf8Text(widget->findChild<QTextBrowser*>()->source().fileName());
  return {};
}

void FormTest::close() {
  form().close();
  QApplication::processEvents();
}

const Field& EditorTest::field(std::string_view name) const {
  const auto fields = kind_.row().fields;
  const auto found = std::ranges::find(fields, name, &Field::name);
  if (found == fields.end()) throw std::invalid_argument("no such field");
  return *found;
}

std::string EditorTest::item(std::string_view first) const {
  std::string item(kind_.recordLength, '\0');
  const auto record = std::as_writable_bytes(std::span(item));
  fillBlank(kind_.row().fields, record);
  for (const Field& field : kind_.row().fields) switch (field.type) {
      case FieldType::text:
        for (std::size_t entry = 0; entry < field.count; ++entry)
          setText(field, record, std::string(first) + ' ' + std::to_string(entry), entry);
        break;
      case FieldType::flag:
        break;
      case FieldType::choice:
        setWhole(field, record, 1);
        break;
      case FieldType::money:
        setMoney(field, record, 15'000);
        break;
      case FieldType::whole:
        setWhole(field, record, 3);
        break;
      case FieldType::date:
        setReal(field, record, 29'221);  // 1 January 1980
        break;
      case FieldType::size:
        setReal(field, record, 5'000);
        break;
    }
  setText(kind_.row().fields.front(), record, first);
  return item;
}

std::string EditorTest::collection(std::initializer_list<std::string> items) const {
  std::string bytes = familyHeader(static_cast<int>(items.size()), kind_.fileType());
  bytes.resize(kind_.recordLength);
  for (const std::string& item : items) bytes += item;
  return bytes;
}

void EditorTest::openBytes(std::string_view bytes) {
  writeFile(collectionPath(), bytes);
  if (!kind_.isMedia()) {
    start({collectionPath()});
  } else {
    start();
    desktop_.tolerateOpen = collectionPath();
    choose("O");
    desktop_.tolerateOpen.reset();
  }
  ASSERT_EQ(formName(), kind_.formName);
}

std::string EditorTest::first() {
  const std::string text = shown(kind_.firstBox());
  return kind_.isMusic() ? std::string(withoutTrailingBlanks(text)) : text;
}

void EditorTest::openSideForm(const ModelSide& opened) {
  choose(opened.action);
  ASSERT_EQ(formName(), opened.formName);
}

void EditorTest::leaveSideForm(const ModelSide& left, WayOut way) {
  ASSERT_EQ(formName(), left.formName);
  switch (way) {
    case WayOut::exitButton:
      press(left.exit);
      break;
    case WayOut::escape:
      QTest::keyClick(form().focusWidget(), Qt::Key_Escape);
      break;
    case WayOut::closeWindow:
      close();
      break;
  }
  EXPECT_EQ(formName(), kind_.formName);
}

void EditorTest::expectError(const std::string& numberAndText) {
  desktop_.expectMessage("Quillbox", "Run-time error " + numberAndText);
}

}  // namespace quillbox::test
