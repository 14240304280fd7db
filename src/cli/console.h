#pragma once

#include <memory>
#include <stdexcept>
#include <string>
#include <string_view>

#include "opendata/export_text.h"
#include "opendata/streams.h"
#include "platform/board.h"
#include "platform/open_files.h"

namespace quillbox {

/// The exit status of a command.
enum ExitStatus : int {
  kDone = 0,
  kFoundOrRefused = 1,  ///< something was found, or could not be done
  kWrongUse = 2,
};

/// A command that names something that does not exist: a column, a key.
class WrongUse : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

/// Standard output, input and error of the command-line program, and the files it reads and writes
/// besides collections.
class Console {
 public:
  explicit Console(OpenFiles& files);

  OpenFiles& files() { return files_; }
  FileSystem& disk() { return files_.fileSystem(); }

  /// Requested output goes to standard output.
  TextSink& out() { return out_; }
  void print(std::string_view text) { out_.write(text); }

  /// Reports an error in a file on standard error.
  void complain(const std::string& file, std::string_view why);

  /// Makes a call for a file; a failure is reported and returns kFoundOrRefused, or kWrongUse. If
  /// the collection exists only under its backup's name, the message says so.
  template <typename Call>
  int guarded(const std::string& file, const Call& call);

  /// Writes the rest; false, after reporting it, when standard output cannot be written.
  bool flush();

  /// Shows the progress of work on a file, on a line that disappears with the next line, and at the
  /// end. Empty when standard error is no terminal. If standard output is one as well, nothing more
  /// is shown once something was written there.
  Progress progressOf(const std::string& file);

  /// True when standard output is a terminal with colours.
  bool showsColours() const;

 private:
  class Output : public TextSink {
   public:
    explicit Output(Console& console) : console_(console) {}
    void write(std::string_view text) override;
    void flush();

   private:
    void writeAll(std::string_view text);

    Console& console_;
    std::string waiting_;
  };

  int complainOfCurrent(const std::string& file);
  void showProgress(const std::string& file, int done, int total);
  void clearProgress();

  OpenFiles& files_;
  Output out_;
  bool mayShowProgress_;
  bool showsProgress_ = false;
};

template <typename Call>
int Console::guarded(const std::string& file, const Call& call) {
  try {
    return call();
  } catch (...) {
    return complainOfCurrent(file);
  }
}

/// A file, or standard input for the name "-".
std::unique_ptr<ByteSource> openSource(FileSystem& files, const std::string& name);

/// Returns the bytes of a source whose first bytes have already been read.
class PeekedSource : public ByteSource {
 public:
  explicit PeekedSource(ByteSource& source);

  /// The first character other than a blank, a line end or a byte-order mark; 0 when there is none
  /// among the first bytes.
  char firstCharacter() const;

  std::size_t read(std::span<char> into) override;

 private:
  ByteSource& source_;
  std::string peeked_;
  std::size_t at_ = 0;
};

}  // namespace quillbox
