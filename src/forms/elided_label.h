#pragma once

#include <QLabel>

namespace quillbox {

/// One line of plain text, cut with an ellipsis where the window has no room for it; all of it is
/// in the tool tip then, and known to assistive technology. It never makes its window wider.
class ElidedLabel : public QLabel {
 public:
  ElidedLabel();

  void showText(const QString& text);
  QSize sizeHint() const override;

 protected:
  void resizeEvent(QResizeEvent* event) override;
  void changeEvent(QEvent* event) override;

 private:
  void fit();

  QString whole_;
};

}  // namespace quillbox
