#include <gtest/gtest.h>

#include <QApplication>
#include <QFont>

int main(int argc, char** argv) {
  testing::InitGoogleTest(&argc, argv);
#ifdef _WIN32
  // wine keeps the toolkit's variables of this machine from the programs that it runs.
  for (const char* name : {"QT_QPA_FONTDIR", "QT_QPA_PLATFORM", "QT_SCALE_FACTOR"})
    if (const QByteArray value = qgetenv(QByteArray("QUILLBOX_") + name); !value.isEmpty())
      qputenv(name, value);
#endif
  if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
  const QApplication application(argc, argv);
  QApplication::setQuitOnLastWindowClosed(false);
#ifdef _WIN32
  // Where nobody knows which font stands for the usual one, the first that is found would.
  QFont font = QApplication::font();
  font.setFamily("DejaVu Sans");
  QApplication::setFont(font);
#endif
  return RUN_ALL_TESTS();
}
