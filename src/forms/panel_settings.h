#pragma once

#include <QSettings>
#include <QString>
#include <QStringList>

namespace quillbox {

struct CollectionKind;

/// The user's settings for the panel of each kind, kept in a settings file. What cannot be read
/// counts as not set; what cannot be written lasts until the program ends.
class PanelSettings {
 public:
  /// The file and its folder need not exist. The file may contain other settings.
  explicit PanelSettings(const QString& settingsFile);

  /// Whether the panel is open beside the form; false until the user opens it.
  bool isOpen(const CollectionKind& kind) const;
  void setOpen(const CollectionKind& kind, bool open);

  /// The names of the columns in the list; empty until the user chooses some.
  QStringList columns(const CollectionKind& kind) const;
  void setColumns(const CollectionKind& kind, const QStringList& names);

 private:
  QSettings settings_;
};

}  // namespace quillbox
