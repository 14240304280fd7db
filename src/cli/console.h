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

/// How a command ended, as the system is told.
enum ExitStatus : int {
  kDone = 0,
  kFoundOrRefused = 1,  ///< something was found, or could not be done
  kWrongUse = 2,
};

/// A command that asks for what there is not: a column, a key.
class WrongUse : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

/// Standard output, input and error of the program for the command line, and the files it reads and
/// writes beside collections.
class Console {
 public:
  explicit Console(OpenFiles& files);

  OpenFiles& files() { return files_; }
  FileSystem& disk() { return files_.fileSystem(); }

  /// What is asked for goes to standard output.
  TextSink& out() { return out_; }
  void print(std::string_view text) { out_.write(text); }

  /// Says on standard error what is wrong with a file.
  void complain(const std::string& file, std::string_view why);

  /// Does that with a file; what fails is said and gives kFoundOrRefused, or kWrongUse. A
  /// collection that lies under its backup's name only is pointed to.
  template <typename Call>
  int guarded(const std::string& file, const Call& call);

  /// Writes what is left; false, and said, when standard output cannot take it.
  bool flush();

  /// Shows how far work on a file is, on a line of its own that is gone when the next line comes,
  /// and at the end. Empty where standard error is no terminal. Where standard output is one, too,
  /// nothing is shown any more once something was written there.
  Progress progressOf(const std::string& file);

  /// True when standard output is a terminal that shows colours.
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

/// A file, or standard input where the name is "-".
std::unique_ptr<ByteSource> openSource(FileSystem& files, const std::string& name);

/// Hands out what a source has, its first bytes having been looked at.
class PeekedSource : public ByteSource {
 public:
  explicit PeekedSource(ByteSource& source);

  /// The first character that is neither a blank, a line end nor a byte-order mark; 0 when there is
  /// none among the first bytes.
  char firstCharacter() const;

  std::size_t read(std::span<char> into) override;

 private:
  ByteSource& source_;
  std::string peeked_;
  std::size_t at_ = 0;
};

}  // namespace quillbox
