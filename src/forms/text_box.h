#pragma once

#include <QLineEdit>

namespace quillbox {

/// A text box of a fixed-width field. The padding of a text never costs the user a character: the
/// caret and the selection stay before it, the first edit removes it, and undoing that restores it.
/// A box that was only visited keeps its contents.
class TextBox : public QLineEdit {
 public:
  /// Accepts at most `width` characters.
  explicit TextBox(int width, QWidget* parent = nullptr);

  /// Shows `text` from its beginning, whatever its length.
  void showText(const QString& text);

  /// The same; blanks at its end are padding.
  void showPadded(const QString& text);

 protected:
  void keyPressEvent(QKeyEvent* event) override;

 private:
  int visibleLength() const { return static_cast<int>(text().size()) - padding_; }
  void settle();
  void takeAsItIs();
  bool isSettled(const QString& text) const;
  void stepOn();
  void cut(qsizetype from, qsizetype length);
  void stayBeforePadding();
  void noteTextSet();

  int width_;
  int padding_ = 0;    // blanks at the end of the text that are padding
  QString shown_;      // with its padding
  QString before_;     // the last edit
  QString unsettled_;  // a text between an edit and its cut
  bool isSettling_ = false;
  bool isUndoKey_ = false;
};

}  // namespace quillbox
