#pragma once

#include <QSettings>
#include <QString>
#include <QStringList>

namespace quillbox {

struct CollectionKind;

/// How the user wants the panel of each kind, kept in a settings file. Whatever cannot be read
/// there is as if never kept; what cannot be written is forgotten at the program's end.
class PanelSettings {
 public:
  /// The file, and the folder it is in, need not exist. It may hold other settings, too.
  explicit PanelSettings(const QString& settingsFile);

  /// Whether the panel is open beside the form; not before the user opens it.
  bool isOpen(const CollectionKind& kind) const;
  void setOpen(const CollectionKind& kind, bool open);

  /// The names of the columns that the list shows; empty before the user chooses any.
  QStringList columns(const CollectionKind& kind) const;
  void setColumns(const CollectionKind& kind, const QStringList& names);

 private:
  QSettings settings_;
};

}  // namespace quillbox
