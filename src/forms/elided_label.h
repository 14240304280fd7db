#pragma once

#include <QLabel>

namespace quillbox {

/// A line that is cut in its middle where there is no room for all of it: a path keeps its
/// beginning and its end. The whole of it is in the tool tip, and known to assistive technology.
class ElidedLabel : public QLabel {
 public:
  ElidedLabel();

  /// Plain text of one line. What changes is told to assistive technology.
  void setFullText(const QString& text);
  const QString& fullText() const { return fullText_; }

  QSize minimumSizeHint() const override;

 protected:
  void resizeEvent(QResizeEvent* event) override;
  void changeEvent(QEvent* event) override;

 private:
  void cut();

  QString fullText_;
};

}  // namespace quillbox
