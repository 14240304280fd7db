#pragma once

#include <QLineEdit>

namespace quillbox {

/// A text box of a fixed-width field. A text shown with the blanks that pad it on disk never costs
/// the user a character: the caret and the selection stay before the padding, and the padding goes
/// with the first edit. A box that was only visited keeps what it held.
class TextBox : public QLineEdit {
 public:
  /// Takes at most `width` characters.
  explicit TextBox(int width, QWidget* parent = nullptr);

  /// Shows `text` from its beginning, however long it is.
  void showText(const QString& text);

  /// The same; blanks at its end are padding.
  void showPadded(const QString& text);

 private:
  int visibleLength() const { return static_cast<int>(text().size()) - padding_; }
  void dropPadding();
  void stayBeforePadding();
  void textChangedBy(const QString& text);

  int width_;
  int padding_ = 0;  // blanks at the end of the text that are not the user's
  QString shown_;
};

}  // namespace quillbox
