// Shows an empty window and exits when it has been painted: the minimum for any program of this
// toolkit. bench_start_peer --form COUNTS: the window has as many plain controls as COUNTS says,
// which bench_start_quillbox has written.

#include <QGridLayout>
#include <vector>

#include "control_counts.h"
#include "first_paint.h"

namespace {

using quillbox::bench::ControlCounts;

/// In two columns of captions and what they belong to, so that all are in view.
void addPlainControls(QMainWindow& window, const ControlCounts& counts) {
  std::vector<QWidget*> labels;
  std::vector<QWidget*> others;
  for (int i = 0; i < counts.labels; ++i) labels.push_back(new QLabel(QStringLiteral("Caption:")));
  for (int i = 0; i < counts.inputs; ++i)
    others.push_back(new QLineEdit(QStringLiteral("Some text")));
  for (int i = 0; i < counts.lists; ++i) {
    auto* list = new QComboBox;
    list->addItems({QStringLiteral("One"), QStringLiteral("Two")});
    others.push_back(list);
  }
  for (int i = 0; i < counts.boxes; ++i) others.push_back(new QCheckBox(QStringLiteral("Box")));
  for (int i = 0; i < counts.buttons; ++i)
    others.push_back(new QPushButton(QStringLiteral("Button")));
  for (int i = 0; i < counts.toolButtons; ++i) {
    auto* button = new QToolButton;
    button->setText(QStringLiteral("Button"));
    others.push_back(button);
  }
  for (int i = 0; i < counts.lines; ++i) {
    auto* line = new QFrame;
    line->setFrameShape(QFrame::HLine);
    others.push_back(line);
  }

  QWidget* page = new QWidget;
  auto* grid = new QGridLayout(page);
  const auto addFrom = [grid](int column, const std::vector<QWidget*>& controls) {
    for (int i = 0; auto* control : controls) {
      grid->addWidget(control, i / 2, column + 2 * (i % 2));
      ++i;
    }
  };
  addFrom(0, labels);
  addFrom(1, others);
  for (int i = 0; i < counts.scrollAreas; ++i) {
    auto* area = new QScrollArea;
    area->setWidgetResizable(true);
    area->setWidget(page);
    page = area;
  }
  window.setCentralWidget(page);
  for (int i = 0; i < counts.menus; ++i) {
    QMenu* menu = window.menuBar()->addMenu(QStringLiteral("Menu"));
    for (int item = i; item < counts.menuItems; item += counts.menus)
      menu->addAction(QStringLiteral("Item"));
  }
}

}  // namespace

int main(int argc, char** argv) {
  const QApplication application(argc, argv);
  const quillbox::bench::FirstPaint firstPaint([](QWidget&) { QCoreApplication::exit(0); });
  QMainWindow window;
  window.resize(860, 600);
  if (argc == 3) addPlainControls(window, quillbox::bench::readCounts(argv[2]));
  window.show();
  return QApplication::exec();
}
