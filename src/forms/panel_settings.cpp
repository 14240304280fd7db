#include "forms/panel_settings.h"

#include "forms/qt_text.h"
#include "records/kinds.h"

namespace quillbox {
namespace {

QString keyOf(const CollectionKind& kind, const char* what) {
  return QStringLiteral("Panel/%1%2").arg(fromUtf8Text(kind.extension), QLatin1String(what));
}

}  // namespace

PanelSettings::PanelSettings(const QString& settingsFile)
    : settings_(settingsFile, QSettings::IniFormat) {}

bool PanelSettings::isOpen(const CollectionKind& kind) const {
  return settings_.value(keyOf(kind, "Open")).toBool();
}

void PanelSettings::setOpen(const CollectionKind& kind, bool open) {
  settings_.setValue(keyOf(kind, "Open"), open);
}

QStringList PanelSettings::columns(const CollectionKind& kind) const {
  return settings_.value(keyOf(kind, "Columns")).toStringList();
}

void PanelSettings::setColumns(const CollectionKind& kind, const QStringList& names) {
  settings_.setValue(keyOf(kind, "Columns"), names);
}

}  // namespace quillbox
