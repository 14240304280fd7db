#pragma once

#include <exception>
#include <string>
#include <string_view>

namespace quillbox {

/// The run-time errors that Quillbox can meet, by the number users see.
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

/// An operation that failed. The core throws it, and one place (Program::run) turns it into a
/// message box; elsewhere it is caught only where errors are ignored on purpose.
class RunTimeError : public std::exception {
 public:
  /// `file` is the path the operation worked on; empty when no file is involved.
  explicit RunTimeError(ErrorNumber number, std::string file = {});

  ErrorNumber number() const { return number_; }
  const std::string& file() const { return file_; }

  /// The text of the message box: "Run-time error '58':", an empty line, the standard text, and
  /// below it the file if there is one.
  const std::string& message() const { return message_; }

  /// What was added to the message, one paragraph after another.
  const std::string& notes() const { return notes_; }

  /// Adds a paragraph to the message: what the user must know besides the error.
  void addNote(std::string_view note);

  const char* what() const noexcept override { return message_.c_str(); }

 private:
  ErrorNumber number_;
  std::string file_;
  std::string message_;
  std::string notes_;
};

/// The text for an error's number, such as "File not found".
const char* standardText(ErrorNumber number);

/// The run-time error for a failed system call.
RunTimeError errorFromErrno(int error, const std::string& file);

/// Makes a call whose run-time errors are ignored on purpose; the first one ends the call.
template <typename Call>
void ignoringErrors(const Call& call) {
  try {
    call();
  } catch (const RunTimeError&) {
    // What follows the call does not depend on it.
  }
}

/// Unwinds to the end of the running handler, where the program ends at once: files are closed,
/// nothing is saved, nothing is asked. Only Program::run catches it.
struct ProgramEnd {};

/// Ends the program at once.
[[noreturn]] inline void endProgram() { throw ProgramEnd{}; }

}  // namespace quillbox
