#pragma once

#include <QString>

class QColor;
class QLabel;
class QPalette;
class QPushButton;
class QWidget;

/// How every form makes its controls, so that each is found by its name and known by its caption.
namespace quillbox {

/// Of a control that is in no control array.
inline constexpr int kNoElement = -1;

/// The name of an element of a control array is "array_element".
QString controlName(const char* name, int element = kNoElement);

/// Names a control and gives it the caption it is known by.
void nameControl(QWidget& control, const QString& name, const QString& caption);

/// Names an input, gives it the caption it is known by and keeps access keys from being typed into
/// it; returns the label that shows the caption and leads to the input by its access key.
QLabel* makeCaption(QWidget& input, const QString& name, const QString& caption);

/// A button; Enter presses it while it has the focus, as the space bar does.
QPushButton* makeButton(const QString& name, const QString& caption);

/// Gives a button its tool tip: what it does, and its keys, which are the access key of its caption
/// and `otherKeys`.
void explain(QPushButton& button, const QString& what, const QString& otherKeys = {});

/// The label keeps room for `widest` from now on, so that nothing beside it moves.
void keepRoomFor(QLabel& label, const QString& widest);

/// For what is not written yet: readable on the palette's window, be it light or dark.
QColor unwrittenColor(const QPalette& palette);

/// An input that holds something else than its item has a tint, until it does no more.
void tintAsChanged(QWidget& input, bool isChanged);

}  // namespace quillbox
