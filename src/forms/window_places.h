#pragma once

#include <QSettings>
#include <QString>

class QWidget;

namespace quillbox {

/// The positions and sizes of windows, without their frames, when they were last hidden, by their
/// object names, kept in a settings file. What is damaged or cannot be read counts as not set; what
/// cannot be written lasts until the program ends.
class WindowPlaces {
 public:
  /// The file and its folder need not exist.
  explicit WindowPlaces(const QString& settingsFile);

  /// The user's own settings file.
  static QString userFile();

  /// Moves the window to its place, if one is stored.
  void restore(QWidget& window) const;

  void remember(const QWidget& window);

 private:
  QSettings settings_;
};

}  // namespace quillbox
