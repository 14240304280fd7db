#pragma once

#include <QTextBrowser>
#include <functional>

namespace quillbox {

/// A page of docs/manual in the help window: with spacing between paragraphs and in tables, letters
/// in the chosen size, and pictures in the present colours, no wider than the window.
class HelpPage : public QTextBrowser {
 public:
  HelpPage();

  /// Shows a page by its file name.
  void open(const QString& page);

  // Makes the letters a step larger or smaller, or resets them. The size outlasts the page.
  void enlarge() { setZoom(zoom_ + 1); }
  void shrink() { setZoom(zoom_ - 1); }
  void resetZoom() { setZoom(0); }

  enum class Found { here, fromTheOtherEnd, nowhere };

  /// Selects the next or previous occurrence of the text; while it is still being typed, the
  /// selection may stay where it is. Wraps round at the end of the page. If nothing is found, the
  /// selection is unchanged.
  enum class From { next, previous, here };
  Found search(const QString& text, From from);

 protected:
  QVariant loadResource(int type, const QUrl& name) override;
  void changeEvent(QEvent* event) override;
  void wheelEvent(QWheelEvent* event) override;

 private:
  void setZoom(int zoom);
  void layOut();
  bool isDark() const;

  qreal usualSize_;  // the font size, in points
  int zoom_ = 0;     // in steps
  bool shownDark_;
};

}  // namespace quillbox
