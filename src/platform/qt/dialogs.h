#pragma once

#include <QString>
#include <optional>
#include <string>

#include "platform/desktop.h"

class QDialog;
class QWidget;

namespace quillbox {

enum class FileDialogMode { open, save };

/// Shows the toolkit's dialog for a file, over the window that is active; nothing when the user
/// cancels. The path's own bytes.
std::optional<std::string> askForFile(const FileDialog& asked, FileDialogMode mode);

/// The window that a dialog is shown over, if any: the active one, or else a form on screen.
QWidget* askingForm();

/// From now on the dialog has the icon of the form it belongs to, or the program's.
void takeIcon(QDialog& dialog);

/// As wide as a dialog must be for the window manager to show its title whole, in bold and with an
/// icon and three buttons beside it; never wider than the screen.
int widthForTitle(const QDialog& dialog);

/// The toolkit takes "[*]" in a caption for the place of a mark; doubled it stands for itself.
QString captionText(const std::string& text);

}  // namespace quillbox
