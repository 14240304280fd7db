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

/// A modal message box. Texts are plain UTF-8, never markup; of Yes and No, No is the default and
/// what dismissing the box means.
struct MessageBox {
  std::string title;
  std::string text;
  Buttons buttons = Buttons::ok;
  MessageIcon icon = MessageIcon::none;
};

/// An open or save dialog. The filter is made of pairs of a description and its patterns, separated
/// by "|"; the patterns of a pair are separated by ";" and match without regard to capitals.
struct FileDialog {
  std::string title;
  std::string filter;
  std::string fileName = {};  ///< offered, in the path's own bytes
  std::string name = {};      ///< of the dialog itself, as of every control
};

/// What the user chose in the print dialog, besides what the printer was told at once.
struct PrintChoice {
  bool toFile = false;  ///< a text file is wanted, not paper
};

/// What the program asks of a desktop, so that a test can script every answer.
class Desktop {
 public:
  virtual ~Desktop() = default;

  virtual Answer messageBox(const MessageBox& box) = 0;

  /// Asks for a line of text (UTF-8), offering `preset`; nothing when the user cancels.
  virtual std::optional<std::string> inputBox(const std::string& prompt, const std::string& title,
                                              const std::string& preset = {}) = 0;

  /// Asks for a file to open; it need not exist. The path's own bytes, or nothing when the user
  /// cancels.
  virtual std::optional<std::string> openDialog(const FileDialog& dialog) = 0;

  /// Asks for the name of a file to write.
  virtual std::optional<std::string> saveDialog(const FileDialog& dialog) = 0;

  /// The platform's short date form (UTF-8), as date_text.h takes it.
  virtual std::string shortDateForm() = 0;

  /// Today's date in that form, as `dateText` writes it.
  virtual std::string todayText() = 0;

  /// Shows the platform's printer set-up dialog under a control's name.
  virtual void printerSetup(const std::string& name) = 0;

  /// Asks where to print; nothing when the user cancels. A document on disk is offered that
  /// name, in the path's own bytes.
  virtual std::optional<PrintChoice> printDialog(const std::string& title,
                                                 const std::string& documentName) = 0;

  /// The printer that was chosen last.
  virtual Printer& printer() = 0;

  /// Lets events through for about that long, or until `over` says so, without using the processor.
  virtual void rest(int milliseconds, const std::function<bool()>& over) = 0;

  /// Hands a file to the program that the user opens such files with; false where there is none.
  virtual bool openFile(const std::string& /*path*/) { return false; }

  /// Ends the program in the ordinary way, when the running handler is done.
  virtual void quit() = 0;

  /// Ends the program at once; only a test's desktop returns.
  virtual void endAtOnce() = 0;
};

}  // namespace quillbox
