#include "cli/console.h"

#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <utility>

#include "cli/table.h"
#include "opendata/beside.h"
#include "opendata/collection_file.h"
#include "opendata/data_error.h"
#include "platform/run_time_error.h"

namespace quillbox {
namespace {

constexpr std::size_t kAtOnce = 131'072;
constexpr const char* kClearLine = "\r\033[K";

void writeToDescriptor(int descriptor, std::string_view text) {
  while (!text.empty()) {
    const auto put = ::write(descriptor, text.data(), text.size());
    if (put >= 0)
      text.remove_prefix(static_cast<std::size_t>(put));
    else if (errno != EINTR)
      throw errorFromErrno(errno, "standard output");
  }
}

class StandardInput : public ByteSource {
 public:
  std::size_t read(std::span<char> into) override {
    for (;;) {
      const auto got = ::read(STDIN_FILENO, into.data(), into.size());
      if (got >= 0) return static_cast<std::size_t>(got);
      if (errno != EINTR) throw errorFromErrno(errno, "standard input");
    }
  }
};

class FileSource : public ByteSource {
 public:
  FileSource(FileSystem& files, const std::string& path)
      : file_(files.open(path, OpenMode::read)) {}

  std::size_t read(std::span<char> into) override {
    const std::size_t got = file_->readAt(at_, std::as_writable_bytes(into));
    at_ += got;
    return got;
  }

 private:
  std::unique_ptr<File> file_;
  std::uint64_t at_ = 0;
};

/// The beginning of a text that is too long for a message.
std::string shortened(std::string_view text) {
  constexpr std::size_t most = 500;
  if (text.size() <= most) return std::string(text);
  std::size_t end = most;
  while (end > 0 && (static_cast<unsigned char>(text[end]) & 0xC0U) == 0x80U) --end;  // of UTF-8
  return std::string(text.substr(0, end)) + "...";
}

}  // namespace

Console::Console(OpenFiles& files)
    : files_(files), out_(*this), mayShowProgress_(::isatty(STDERR_FILENO) != 0) {}

void Console::Output::write(std::string_view text) {
  if (waiting_.size() + text.size() > kAtOnce) flush();
  if (text.size() >= kAtOnce) return writeAll(text);
  waiting_ += text;
}

void Console::Output::flush() { writeAll(std::exchange(waiting_, {})); }

void Console::Output::writeAll(std::string_view text) {
  if (text.empty()) return;
  if (::isatty(STDOUT_FILENO) != 0) {
    console_.clearProgress();
    console_.mayShowProgress_ = false;  // the output may end in the middle of a line
  }
  writeToDescriptor(STDOUT_FILENO, text);
}

void Console::complain(const std::string& file, std::string_view why) {
  clearProgress();
  std::string line = "quillbox-cli: ";
  if (!file.empty()) line.append(file).append(": ");
  line = printable(line.append(shortened(why))) + "\n";
  std::fputs(line.c_str(), stderr);
}

int Console::complainOfCurrent(const std::string& file) {
  try {
    throw;
  } catch (const WrongUse& error) {
    complain(file, error.what());
    return kWrongUse;
  } catch (const DataError& error) {
    complain(file, error.what());
  } catch (const RunTimeError& error) {
    complain(error.file().empty() ? file : error.file(), standardText(error.number()));
    if (!error.notes().empty()) complain(file, error.notes());
    if (error.number() != ErrorNumber::fileNotFound) return kFoundOrRefused;
    ignoringErrors([&] {
      for (const auto& [kind, path] : filesBeside(disk(), file))
        if (kind == BesideKind::sortBackup || kind == BesideKind::upgradeBackup)
          complain(file, "there is a " + std::string(besideText(kind)) + ", " + path +
                             "; restore puts it back");
    });
  }
  return kFoundOrRefused;
}

bool Console::flush() {
  clearProgress();
  try {
    out_.flush();
    return true;
  } catch (const RunTimeError& error) {
    complain(error.file(), standardText(error.number()));
    return false;
  }
}

Progress Console::progressOf(const std::string& file) {
  if (!mayShowProgress_) return {};
  return [this, name = printable(file)](int done, int total) { showProgress(name, done, total); };
}

void Console::showProgress(const std::string& file, int done, int total) {
  constexpr int nowAndThen = 1000;
  if (!mayShowProgress_ || done % nowAndThen != 0) return;
  showsProgress_ = true;
  std::string line = kClearLine + file + ": " + std::to_string(done);
  if (total > 0) line += " of " + std::to_string(total);
  std::fputs(line.c_str(), stderr);
}

void Console::clearProgress() {
  if (std::exchange(showsProgress_, false)) std::fputs(kClearLine, stderr);
}

bool Console::showsColours() const {
  const char* const terminal = std::getenv("TERM");
  const bool isPlain = terminal == nullptr || std::string_view(terminal) == "dumb";
  return ::isatty(STDOUT_FILENO) != 0 && !isPlain && std::getenv("NO_COLOR") == nullptr;
}

std::unique_ptr<ByteSource> openSource(FileSystem& files, const std::string& name) {
  if (name == "-") return std::make_unique<StandardInput>();
  return std::make_unique<FileSource>(files, name);
}

PeekedSource::PeekedSource(ByteSource& source) : source_(source) {
  constexpr std::size_t enough = 4096;
  peeked_.resize(enough);
  peeked_.resize(source.read(peeked_));
}

char PeekedSource::firstCharacter() const {
  std::string_view text = peeked_;
  if (text.starts_with("\xEF\xBB\xBF")) text.remove_prefix(3);
  const auto first = text.find_first_not_of(" \t\r\n");
  return first == std::string_view::npos ? '\0' : text[first];
}

std::size_t PeekedSource::read(std::span<char> into) {
  if (at_ == peeked_.size()) return source_.read(into);
  const std::size_t taken = peeked_.copy(into.data(), into.size(), at_);
  at_ += taken;
  return taken;
}

}  // namespace quillbox
