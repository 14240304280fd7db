#pragma once

#include <QLabel>

namespace quillbox {

/// One line of plain text, cut where the window has no room for it; all of it is in the tool tip
/// then, and known to assistive technology, which is told when it changes. It never makes its
/// window wider, and is as high when it is empty, so that nothing below it moves.
class ElidedLabel : public QLabel {
 public:
  /// A path is best cut in its middle: it keeps its beginning and its end.
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
