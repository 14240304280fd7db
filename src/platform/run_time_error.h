#pragma once

#include <exception>
#include <string>
#include <string_view>

namespace quillbox {

/// The platform's run-time errors that Quillbox can meet, by the number users see.
enum class ErrorNumber : int {
  overflow = 6,
  typeMismatch = 13,
  fileNotFound = 53,
  fileAlreadyOpen = 55,
  deviceIo = 57,
  fileAlreadyExists = 58,
  diskFull = 61,
  badRecordNumber = 63,
  permissionDenied = 70,
  differentDrive = 74,
  pathFileAccess = 75,
  pathNotFound = 76,
};

/// An operation that could not be done. Thrown by the core, turned into its message box in one
/// place (Program::run), and otherwise swallowed only where errors are ignored on purpose.
class RunTimeError : public std::exception {
 public:
  /// `file` is the path the operation worked on; empty when no file is involved.
  explicit RunTimeError(ErrorNumber number, std::string file = {});

  ErrorNumber number() const { return number_; }
  const std::string& file() const { return file_; }

  /// The text of the message box: "Run-time error '58':", an empty line, the standard text, and
  /// below it the file if there is one.
  const std::string& message() const { return message_; }

  /// What was added to the message, one paragraph after the other.
  const std::string& notes() const { return notes_; }

  /// Adds a paragraph to the message: what the user must know besides the error itself.
  void addNote(std::string_view note);

  const char* what() const noexcept override { return message_.c_str(); }

 private:
  ErrorNumber number_;
  std::string file_;
  std::string message_;
  std::string notes_;
};

/// The text that belongs to an error's number: "File not found".
const char* standardText(ErrorNumber number);

/// The run-time error for a failed system call.
RunTimeError errorFromErrno(int error, const std::string& file);

/// Makes a call whose run-time errors are ignored on purpose; it ends where it fails.
template <typename Call>
void ignoringErrors(const Call& call) {
  try {
    call();
  } catch (const RunTimeError&) {
    // What the call is for goes on without it.
  }
}

/// Unwinds to the end of the running handler, where the program is ended at once: files closed,
/// nothing saved, nothing asked. Never caught anywhere else.
struct ProgramEnd {};

/// Ends the program at once.
[[noreturn]] inline void endProgram() { throw ProgramEnd{}; }

}  // namespace quillbox
