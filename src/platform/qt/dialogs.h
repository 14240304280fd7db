#pragma once

#include <QString>
#include <optional>
#include <string>

#include "platform/desktop.h"

class QDialog;
class QWidget;

namespace quillbox {

enum class FileDialogMode { open, save };

/// Shows the toolkit's file dialog over the active window. Returns the path's own bytes, or nothing
/// when the user cancels.
std::optional<std::string> askForFile(const FileDialog& asked, FileDialogMode mode);

/// The window that a dialog is shown over, if any: the active one, otherwise a visible form. The
/// toolkit gives the dialog its icon or, without one, the program's.
QWidget* askingForm();

/// The width at which a window manager shows a dialog's whole title, in bold and beside an icon and
/// three buttons; never wider than the screen.
int widthForTitle(const QDialog& dialog);

/// The toolkit reads "[*]" in a caption as the place of a mark; doubled it is shown as it is.
QString captionText(const std::string& text);

}  // namespace quillbox
