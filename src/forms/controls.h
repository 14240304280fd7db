#pragma once

#include <QString>

class QColor;
class QLabel;
class QPalette;
class QPushButton;
class QWidget;

/// How all forms create their controls, so that each has an object name and an accessible name.
namespace quillbox {

/// For a control outside a control array.
inline constexpr int kNoElement = -1;

/// The name of an element of a control array is "array_element".
QString controlName(const char* name, int element = kNoElement);

/// Sets a control's object name and, from its caption, its accessible name.
void nameControl(QWidget& control, const QString& name, const QString& caption);

/// Sets an input's names and keeps access keys from being typed into it; returns the label that
/// shows the caption and moves the focus to the input by its access key.
QLabel* makeCaption(QWidget& input, const QString& name, const QString& caption);

/// A button; Enter presses it while it has the focus, like the space bar.
QPushButton* makeButton(const QString& name, const QString& caption);

/// Sets a button's tool tip: what it does, and its keys, which are the access key of its caption
/// and `otherKeys`.
void explain(QPushButton& button, const QString& what, const QString& otherKeys = {});

/// Keeps the label wide enough for `widest`, so that nothing beside it moves.
void keepRoomFor(QLabel& label, const QString& widest);

/// The colour for what is not written yet: readable on the palette's window, light or dark.
QColor unwrittenColor(const QPalette& palette);

/// Tints an input while its contents differ from its item.
void tintAsChanged(QWidget& input, bool isChanged);

}  // namespace quillbox
