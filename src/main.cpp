#include <QApplication>
#include <cstdio>
#include <string>
#include <string_view>
#include <vector>

#include "forms/icons.h"
#include "forms/kept_texts.h"
#include "forms/panel_settings.h"
#include "forms/placeholders.h"
#include "forms/program.h"
#include "forms/qt_text.h"
#include "forms/recent_collections.h"
#include "forms/window_places.h"
#include "platform/disk_file_system.h"
#include "platform/parent_console.h"
#include "platform/qt/qt_desktop.h"
#include "records/version.h"
#include "shell/modQBX1.h"

namespace {

constexpr const char* kUsage =
    "Usage: quillbox [PATH]\n"
    "Catalogues a private collection. PATH is a collection file; without one the start screen\n"
    "is shown.\n\n"
    "  --help     print this text and end\n"
    "  --version  print the version and end\n";

/// What is printed and exits; this needs no display.
bool answeredOnTerminal(int argc, char** argv) {
  if (argc != 2) return false;
  const std::string_view argument = argv[1];
  if (argument != "--help" && argument != "--version") return false;
#ifdef Q_OS_WIN
  quillbox::writeToParentConsole();
#endif
  if (argument == "--help") return std::fputs(kUsage, stdout) >= 0;
  return std::puts(quillbox::endingWithVersion("Quillbox ").c_str()) >= 0;
}

/// What follows the program's name, without the toolkit's own options.
std::vector<std::string> argumentsOf(int argc, char** argv) {
#ifdef Q_OS_WIN
  // There argv is in the user's code page, which many names do not fit into.
  std::vector<std::string> arguments;
  const QStringList all = QCoreApplication::arguments();
  for (qsizetype i = all.size() - argc + 1; i < all.size(); ++i)
    arguments.push_back(quillbox::toPath(all[i]));
  static_cast<void>(argv);
  return arguments;
#else
  return {argv + 1, argv + argc};
#endif
}

}  // namespace

int main(int argc, char** argv) {
  using namespace quillbox;
  if (answeredOnTerminal(argc, argv)) return 0;

  const QApplication application(argc, argv);  // removes the toolkit's own options
  QApplication::setQuitOnLastWindowClosed(false);
  // This name leads the desktop to the program's entry, with its name and icon.
  QGuiApplication::setDesktopFileName(QStringLiteral("org.quillbox.Quillbox"));
  QApplication::setWindowIcon(ownIcon("org.quillbox.Quillbox"));
  const ReadablePlaceholders readablePlaceholders;
  const std::vector<std::string> arguments = argumentsOf(argc, argv);

  DiskFileSystem fileSystem;
  AppState state(fileSystem);
  QtDesktop desktop;
  WindowPlaces windowPlaces(WindowPlaces::userFile());
  RecentCollections recents(WindowPlaces::userFile());
  PanelSettings panelSettings(WindowPlaces::userFile());
  Program program(state, desktop);
  program.setWindowPlaces(windowPlaces);
  program.setTypedFolder(KeptTexts::userFolder());
  program.setRecents(recents);
  program.setPanelSettings(panelSettings);
  program.setSheetPrinter(desktop);
  modQBX1 startUp(program);
  program.run([&] { startUp.Main(arguments); });
  return program.isEnding() ? 0 : QApplication::exec();
}
