#include "platform/qt/print_layout.h"

namespace quillbox {

std::vector<QStringList> sheetsOf(const QString& text, int columns, int rows) {
  QStringList lines = text.split(QLatin1Char('\n'));
  if (lines.constLast().isEmpty()) lines.removeLast();  // after the end of the last line
  std::vector<QStringList> sheets(1);
  const auto add = [&](const QString& line) {
    if (sheets.back().size() == rows) sheets.emplace_back();
    sheets.back() << line;
  };
  for (QString& line : lines) {
    if (line.endsWith(QLatin1Char('\r'))) line.chop(1);
    do {
      add(line.left(columns));
      line.remove(0, columns);
    } while (!line.isEmpty());
  }
  return sheets;
}

}  // namespace quillbox
