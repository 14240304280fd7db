// Shows an empty window and exits when it has been painted: the minimum for any program of this
// toolkit. With --form the window has as many plain controls as the music editor.

#include <QCheckBox>
#include <QComboBox>
#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QMainWindow>
#include <QMenuBar>
#include <QPushButton>

#include "first_paint.h"

namespace {

void addPlainControls(QMainWindow& window) {
  auto* page = new QWidget;
  auto* grid = new QGridLayout(page);
  auto add = [grid, row = 0](QWidget* left, QWidget* right) mutable {
    grid->addWidget(left, row, 0);
    grid->addWidget(right, row++, 1);
  };
  const auto caption = [] { return new QLabel(QStringLiteral("Caption:")); };
  for (int i = 0; i < 11; ++i) add(caption(), new QLineEdit(QStringLiteral("Some text")));
  for (int i = 0; i < 2; ++i) {
    auto* list = new QComboBox;
    list->addItems({QStringLiteral("One"), QStringLiteral("Two")});
    add(caption(), list);
  }
  for (int i = 0; i < 3; ++i) add(caption(), new QCheckBox(QStringLiteral("Box")));
  for (int i = 0; i < 3; ++i)
    add(new QPushButton(QStringLiteral("Button")), new QPushButton(QStringLiteral("Button")));
  window.setCentralWidget(page);
  for (int i = 0; i < 5; ++i)
    window.menuBar()->addMenu(QStringLiteral("Menu"))->addAction(QStringLiteral("Item"));
}

}  // namespace

int main(int argc, char** argv) {
  const QApplication application(argc, argv);
  const quillbox::bench::FirstPaint firstPaint([](QWidget&) { QCoreApplication::exit(0); });
  QMainWindow window;
  window.resize(860, 600);
  if (argc == 2) addPlainControls(window);
  window.show();
  return QApplication::exec();
}
