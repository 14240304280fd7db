#pragma once

#include <QLineEdit>

namespace quillbox {

/// A text box of a fixed-width field. A text shown with the blanks that pad it on disk never costs
/// the user a character: the caret and the selection stay before the padding, and the padding goes
/// with the first edit, and comes back when that is undone. A box that was only visited keeps what
/// it held.
class TextBox : public QLineEdit {
 public:
  /// Takes at most `width` characters.
  explicit TextBox(int width, QWidget* parent = nullptr);

  /// Shows `text` from its beginning, however long it is.
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
  int padding_ = 0;    // blanks at the end of the text that are not the user's
  QString shown_;      // with its padding
  QString before_;     // the last edit
  QString unsettled_;  // what stood here for a moment between an edit and the cut of it
  bool isSettling_ = false;
  bool isUndoKey_ = false;
};

}  // namespace quillbox
