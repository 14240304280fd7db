#pragma once

#include <QScrollArea>

namespace quillbox {

/// The inputs of a form. If the window is too small for all of them, they scroll, and the one with
/// the focus is always in view.
class ScrollingPage : public QScrollArea {
 public:
  explicit ScrollingPage(QWidget* page);
  ScrollingPage(const ScrollingPage&) = delete;
  ScrollingPage& operator=(const ScrollingPage&) = delete;
  ~ScrollingPage() override;

  /// All of the page.
  QSize sizeHint() const override;

  /// A few lines of it.
  QSize minimumSizeHint() const override;

 protected:
  void resizeEvent(QResizeEvent* event) override;

 private:
  void keepInView(const QWidget* focus);
};

}  // namespace quillbox
