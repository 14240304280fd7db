#include "forms/item_line.h"

#include <QLineEdit>
#include <QStringList>

#include "forms/elided_label.h"
#include "forms/field_sheet.h"

namespace quillbox {

ElidedLabel* makeItemLine() {
  auto* line = new ElidedLabel;
  line->setObjectName(QStringLiteral("lblItem"));
  QFont font = line->font();
  font.setBold(true);
  line->setFont(font);
  return line;
}

QString itemLine(const QString& number, const FieldSheet& sheet, const NameBoxes& names) {
  QStringList shown;
  for (const char* name : names)
    if (name != nullptr) shown << sheet.textBox(name).text().trimmed();
  shown.removeAll(QString());
  QStringList parts = {number, shown.join(QStringLiteral(", "))};
  parts.removeAll(QString());
  return parts.join(QStringLiteral(" \u2013 "));
}

}  // namespace quillbox
