#pragma once

#include <functional>
#include <optional>
#include <string>
#include <string_view>

namespace quillbox {

class Printer;

enum class Buttons { ok, yesNo };
enum class Answer { ok, yes, no };
enum class MessageIcon { none, information, question, critical };

/// The title of messages that have none of their own.
inline constexpr std::string_view kDefaultTitle = "Quillbox";

/// A modal message box. Texts are plain UTF-8, never markup. Of Yes and No, No is the default
/// button and the answer when the box is dismissed.
struct MessageBox {
  std::string title;
  std::string text;
  Buttons buttons = Buttons::ok;
  MessageIcon icon = MessageIcon::none;
};

/// An open or save dialog. The filter is a list of pairs, a description and its patterns, separated
/// by "|"; the patterns of a pair are separated by ";" and ignore case.
struct FileDialog {
  std::string title;
  std::string filter;
  std::string fileName = {};  ///< offered, in the path's own bytes
  std::string name = {};      ///< of the dialog, as every control has one
};

/// What the user chose in the print dialog, apart from what was passed to the printer at once.
struct PrintChoice {
  bool toFile = false;  ///< a text file is wanted, not paper
};

/// What the program needs from a desktop, so that a test can script every answer.
class Desktop {
 public:
  virtual ~Desktop() = default;

  virtual Answer messageBox(const MessageBox& box) = 0;

  /// Asks for a line of text (UTF-8), offering `preset`; nothing when the user cancels.
  virtual std::optional<std::string> inputBox(const std::string& prompt, const std::string& title,
                                              const std::string& preset = {}) = 0;

  /// Asks for a file to open; it need not exist. Returns the path's own bytes, or nothing when the
  /// user cancels.
  virtual std::optional<std::string> openDialog(const FileDialog& dialog) = 0;

  /// Asks for the name of a file to write.
  virtual std::optional<std::string> saveDialog(const FileDialog& dialog) = 0;

  /// The platform's short date form (UTF-8), in the notation of date_text.h.
  virtual std::string shortDateForm() = 0;

  /// Today's date in that form, as `dateText` writes it.
  virtual std::string todayText() = 0;

  /// Shows the platform's printer set-up dialog under a control's name.
  virtual void printerSetup(const std::string& name) = 0;

  /// Asks where to print; nothing when the user cancels. `documentName`, in the path's own bytes,
  /// is offered as the name of a document on disk.
  virtual std::optional<PrintChoice> printDialog(const std::string& title,
                                                 const std::string& documentName) = 0;

  /// The printer that was chosen last.
  virtual Printer& printer() = 0;

  /// Handles events for about that long, or until `over` returns true, without using the processor.
  virtual void rest(int milliseconds, const std::function<bool()>& over) = 0;

  /// Opens a file in the user's program for such files; false when there is none.
  virtual bool openFile(const std::string& /*path*/) { return false; }

  /// Ends the program in the ordinary way once the running handler has returned.
  virtual void quit() = 0;

  /// Ends the program at once; only a test's desktop returns from it.
  virtual void endAtOnce() = 0;
};

}  // namespace quillbox
