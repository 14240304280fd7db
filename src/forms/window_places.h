#pragma once

#include <QSettings>
#include <QString>

class QWidget;

namespace quillbox {

/// Where windows stood and how large they were, without their frames, when they were last hidden,
/// by their object names, kept in a settings file. Whatever cannot be read, or is damaged, is as if
/// never kept; what cannot be written is forgotten at the program's end.
class WindowPlaces {
 public:
  /// The file, and the folder it is in, need not exist.
  explicit WindowPlaces(const QString& settingsFile);

  /// The user's own settings file.
  static QString userFile();

  /// Moves the window to its place; without one it is left where it is.
  void restore(QWidget& window) const;

  void remember(const QWidget& window);

 private:
  QSettings settings_;
};

}  // namespace quillbox
