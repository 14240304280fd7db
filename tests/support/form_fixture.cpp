#include "support/form_fixture.h"

#include <QApplication>
#include <QWindow>
#include <vector>

#include "forms/about.h"
#include "forms/form.h"
#include "forms/qt_text.h"

namespace quillbox::test {

FormTest::FormTest() { QLocale::setDefault(QLocale::c()); }

FormTest::~FormTest() = default;

void FormTest::start(std::initializer_list<std::string> arguments) {
  state_ = std::make_unique<AppState>(files_);
  program_ = std::make_unique<Program>(*state_, desktop_);
  modQBX1_ = std::make_unique<modQBX1>(*program_);
  desktop_.expectMessage("QBX V1.71", aboutText());
  // Boxes a test expects at start-up come after the start-up box.
  desktop_.moveLastToFront();
  const std::vector<std::string> line(arguments);
  program_->run([&] { modQBX1_->Main(line); });
  QApplication::processEvents();
}

void FormTest::restart(std::initializer_list<std::string> arguments) {
  modQBX1_.reset();
  program_.reset();
  state_.reset();
  start(arguments);
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

std::string FormTest::formName() { return toUtf8Text(form().objectName()); }

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

void FormTest::close() {
  form().close();
  QApplication::processEvents();
}

}  // namespace quillbox::test
