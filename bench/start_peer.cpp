// Shows an empty window and ends when it has been painted: what any program of this toolkit takes.

#include <QMainWindow>

#include "first_paint.h"

int main(int argc, char** argv) {
  const QApplication application(argc, argv);
  const quillbox::bench::FirstPaint firstPaint([](QWidget&) { QCoreApplication::exit(0); });
  QMainWindow window;
  window.resize(860, 600);
  window.show();
  return QApplication::exec();
}
