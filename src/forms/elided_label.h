#pragma once

#include <QLabel>

namespace quillbox {

/// One line of plain text, cut if the window is too narrow; the tool tip then has all of it, and so
/// has assistive technology, which is notified of changes. It never makes its window wider, and is
/// as high when it is empty, so that nothing below it moves.
class ElidedLabel : public QLabel {
 public:
  /// A path is best cut in the middle: its beginning and its end stay.
  explicit ElidedLabel(Qt::TextElideMode cut = Qt::ElideRight);

  void showText(const QString& text);
  const QString& fullText() const { return fullText_; }

  QSize sizeHint() const override;

 protected:
  void resizeEvent(QResizeEvent* event) override;
  void changeEvent(QEvent* event) override;

 private:
  void fit();

  Qt::TextElideMode cut_;
  QString fullText_;
};

}  // namespace quillbox
