#pragma once

#include <QLabel>

class QLineEdit;

namespace quillbox {

/// What will become of the text in a box, shown below the box while it has the focus. It overlays
/// the form, so nothing moves, and lets the mouse through.
class LiveHint : public QLabel {
 public:
  /// It lies over what the sheet holds by then.
  explicit LiveHint(QWidget& sheet);

  /// Nothing is shown for an empty text.
  void show(QLineEdit& box, const QString& text);
};

}  // namespace quillbox
