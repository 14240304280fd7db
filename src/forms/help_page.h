#pragma once

#include <QTextBrowser>
#include <functional>

namespace quillbox {

/// A page of docs/manual as the help window shows it: with room between paragraphs and in tables,
/// with letters in the size that was chosen, and with pictures that are no wider than the window
/// and taken in the colours in use.
class HelpPage : public QTextBrowser {
 public:
  HelpPage();

  /// Shows a page by its file name.
  void open(const QString& page);

  // Letters a step larger or smaller, or as at first. The size stays from page to page.
  void enlarge() { setZoom(zoom_ + 1); }
  void shrink() { setZoom(zoom_ - 1); }
  void resetZoom() { setZoom(0); }

  enum class Found { here, fromTheOtherEnd, nowhere };

  /// Selects the next place of that text from the selection on, or the one before; a text that is
  /// still being typed may stay where it is. Goes round at the end of the page. What is found
  /// nowhere leaves the selection.
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

  qreal usualSize_;  // of letters, in points
  int zoom_ = 0;     // steps
  bool shownDark_;
};

}  // namespace quillbox
