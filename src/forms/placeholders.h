#pragma once

#include <QObject>
#include <QPalette>

namespace quillbox {

/// The palette with readable placeholder texts; unchanged if they already are. A palette without a
/// colour for them uses the toolkit's, which is made for light palettes.
QPalette withReadablePlaceholders(QPalette palette);

/// Applies this to the application's palette, and again whenever the palette changes.
class ReadablePlaceholders : public QObject {
 public:
  /// The application must exist, and outlive this object.
  ReadablePlaceholders();

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  static void adjust();
};

}  // namespace quillbox
