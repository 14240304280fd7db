#pragma once

#include <QObject>
#include <QPalette>

namespace quillbox {

/// That palette with texts in empty boxes that can be read; the same one where they can. A palette
/// that names no colour for them has the toolkit's, which is made for light ones.
QPalette withReadablePlaceholders(QPalette palette);

/// Keeps the application's palette such a one, whatever the user changes it to.
class ReadablePlaceholders : public QObject {
 public:
  /// The application must be there, and outlive this.
  ReadablePlaceholders();

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  static void adjust();
};

}  // namespace quillbox
