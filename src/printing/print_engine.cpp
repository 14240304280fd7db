#include "printing/print_engine.h"

#include <cassert>
#include <cmath>
#include <span>
#include <string_view>
#include <utility>

#include "platform/checked16.h"
#include "platform/paths.h"
#include "platform/printer.h"
#include "platform/text_writer.h"
#include "records/collection_store.h"
#include "records/field.h"
#include "records/record_reader.h"
#include "text/number_text.h"
#include "text/padding.h"
#include "text/windows1252.h"

namespace quillbox {
namespace {

constexpr const char* kSpoolName = "printer.tmp";
constexpr const char* kFontName = "Courier New";
constexpr int kFontSize = 10;
constexpr int kFontSizeAfterSetup = 12;
constexpr std::string_view kIndent = "     ";
constexpr std::string_view kLineEnd = "\r\n";

std::string_view textOfPage(std::span<const std::byte> record) {
  return {reinterpret_cast<const char*>(record.data()), record.size()};
}

/// What is printed during its lifetime is sent as a whole, or not at all.
class Document {
 public:
  explicit Document(Printer& printer) : printer_(printer) {}
  Document(const Document&) = delete;
  Document& operator=(const Document&) = delete;
  ~Document() {
    if (!ended_) printer_.dropDocument();
  }

  void printSheet(const std::string& text) {
    printer_.print(text);
    printer_.newPage();
  }
  void end() {
    printer_.endDocument();
    ended_ = true;
  }

 private:
  Printer& printer_;
  bool ended_ = false;
};

/// Rounded to the nearest whole number, an exact half to the even one.
std::int16_t rounded(double value) {
  constexpr double largest = INT16_MAX;
  if (!(std::abs(value) <= largest)) throw RunTimeError(ErrorNumber::overflow);
  return checked16(static_cast<int>(std::lrint(value)));
}

}  // namespace

PrintEngine::PrintEngine(AppState& state, Desktop& desktop, Board& board)
    : state_(state), desktop_(desktop), board_(board) {}

void PrintEngine::PrinterSetup(const std::string& dialogName) {
  desktop_.printerSetup(dialogName);
  desktop_.printer().setFont(kFontName, kFontSizeAfterSetup);
}

void PrintEngine::OpenPrinter(std::int16_t& mode) {
  try {
    const auto choice =
        desktop_.printDialog("QBX List Print", nameWithEnding(state_.currentPath, "pdf"));
    if (!choice) {
      mode = print_mode::cancelled;
      return;
    }
    if (!choice->toFile) return;
    const auto dot = fileName_.find('.');
    if (dot != std::string::npos) fileName_.replace(dot + 1, std::string::npos, "txt");
    mode = print_mode::textFile;
    // Until a name has been chosen, the collection's is offered; it is used only if chosen.
    const std::string offered =
        fileName_.empty() ? nameWithEnding(state_.currentPath, "txt") : fileName_;
    const FileDialog dialog{"Print to FileName", "Text File (*.txt)|*.txt", offered};
    if (const auto chosen = desktop_.saveDialog(dialog)) fileName_ = *chosen;
  } catch (const RunTimeError&) {
    // Without a printer, the pages are still composed.
  }
}

void PrintEngine::PrintData(PrintLines& lines, std::int16_t& count, std::int16_t mode) {
  if (mode == print_mode::pageCount) {
    ignoringErrors([this] { closeSpool(); });
    count = now_.page;
    return;
  }
  if (mode == print_mode::reset) return reset(lines);

  measurePage();
  if (now_.page < 1) now_.page = 1;
  if (mode != print_mode::textFile && isUnwritten(now_.pageText)) setPageText(heading(lines));
  if (now_.page == 1 && now_.linesOnPage == 0) setPageText(heading(lines));

  openSpool();
  addBlock(lines, count, mode);
  board_.clear();
  board_.print("Generating page" + numberText(now_.page) + "...");
  writePage();
}

/// The spool file stays open between blocks; ending the program, or leaving the collection, may
/// have closed it.
void PrintEngine::openSpool() {
  if (spool_ && state_.files.isOpen(file_number::spool)) return;
  const OpenMode mode = holdsOldPages_ ? OpenMode::replace : OpenMode::create;
  spool_.emplace(state_.files, kSpoolName, kPageLength, mode, file_number::spool);
  holdsOldPages_ = false;
  isChanged_ = true;  // the file may be new
}

void PrintEngine::writePages() {
  if (pages_.isEmpty()) return;
  openSpool();
  pages_.writeTo(*spool_);
}

/// Writes the remaining pages. Even if that fails, the file is closed.
void PrintEngine::closeSpool() {
  try {
    writePages();
    if (spool_) spool_->close();
  } catch (const RunTimeError&) {
    spool_.reset();
    throw;
  }
  spool_.reset();
}

void PrintEngine::reset(PrintLines& lines) {
  // What cannot fail comes first: a failure below must not affect the next heading.
  pages_.clear();
  now_.page = 0;
  lines.fill({});
  now_.lineCount = 0;
  now_.linesOnPage = 0;
  holdsOldPages_ = true;
  closeSpool();
  deleteSpool();
  holdsOldPages_ = false;
}

void PrintEngine::measurePage() {
  Printer& printer = desktop_.printer();
  printer.setFont(kFontName, kFontSize);
  constexpr int margin = kFontSize / 2;
  now_.linesPerPage = rounded(printer.printableHeight() / kFontSize - margin);
}

std::string PrintEngine::heading(const PrintLines& lines) const {
  return std::string(lines.front()).append(numberText(now_.page)).append(kLineEnd);
}

void PrintEngine::addBlock(PrintLines& lines, std::int16_t count, std::int16_t mode) {
  const int filled = now_.lineCount + count;
  if (filled < now_.linesPerPage) {
    addLines(lines, count);
    now_.lineCount = checked16(filled);
    writePage();
  } else if (filled > now_.linesPerPage) {
    startNextPage(lines, mode);
    addLines(lines, count);
    now_.lineCount = now_.linesOnPage;
  } else {
    // The next page starts with this one's count before the block: `now_.lineCount` stays.
    addLines(lines, count);
    startNextPage(lines, mode);
  }
}

void PrintEngine::addLines(PrintLines& lines, std::int16_t count) {
  for (std::int16_t line = 1; line <= count; ++line) {
    addLine(lines.at(static_cast<std::size_t>(line)));
    now_.linesOnPage = line;
  }
}

/// Adds nothing for an empty line.
void PrintEngine::addLine(std::string& line) {
  if (line.empty()) return;
  isChanged_ = true;
  if (isUnwritten(now_.pageText)) now_.pageText.clear();
  // Only a heading, or a line that was cut, ends in blanks; this runs for millions of lines.
  if (now_.pageText.ends_with(' '))
    now_.pageText.resize(withoutTrailingBlanks(now_.pageText).size());
  now_.pageText.append(kIndent).append(line).append(kLineEnd);
  if (now_.pageText.size() > kPageLength) now_.pageText.resize(kPageLength);
  line.clear();
}

void PrintEngine::setPageText(std::string_view text) {
  now_.pageText = text;
  isChanged_ = true;
  if (now_.pageText.size() > kPageLength) now_.pageText.resize(kPageLength);
}

void PrintEngine::startNextPage(const PrintLines& lines, std::int16_t mode) {
  writePage();
  now_.page = checked16(now_.page + 1);
  now_.linesOnPage = 0;
  setPageText(mode == print_mode::textFile ? std::string()
                                           : std::string(kIndent).append(heading(lines)));
}

/// A page that has not changed since it was added is not added again.
void PrintEngine::writePage() {
  if (!isChanged_) return;
  if (!pages_.hasRoomFor(now_.page)) pages_.writePieceTo(*spool_);
  const std::size_t length = now_.pageText.size();
  now_.pageText.resize(kPageLength, ' ');
  pages_.put(now_.page, std::as_bytes(std::span(now_.pageText)));
  now_.pageText.resize(length);
  isChanged_ = false;
}

void PrintEngine::PrintOut(std::int16_t mode, std::int16_t pages, const std::string& header) {
  if (mode == print_mode::cancelled) return;
  closeSpool();
  if (mode == print_mode::textFile)
    writeToTextFile(pages, header);
  else
    printRange(pages);
}

void PrintEngine::writeToTextFile(std::int16_t pages, const std::string& header) {
  board_.open("Writing to file...");
  state_.files.close(file_number::collection);
  refuseToReplaceCollection(state_.files, state_, fileName_);
  if (state_.files.fileSystem().isSameFile(fileName_, kSpoolName))
    throw RunTimeError(ErrorNumber::fileAlreadyOpen, fileName_);
  TextWriter file(state_.files, fileName_, file_number::collection);
  file.write(header);
  file.write(kLineEnd);
  RecordFile spool(state_.files, kSpoolName, kPageLength, OpenMode::create, file_number::spool);
  RecordReader reader(spool, pages, 1);
  for (int page = 1; page <= pages; ++page) {
    board_.clear();
    board_.print("Printing" + numberText(page) + " of" + numberText(pages) + " to file...");
    board_.progress(page, pages);
    file.write(withoutTrailingBlanks(textOfPage(reader.next())));
    file.write(kLineEnd);
  }
  board_.close();
  file.close();
  spool.close();
  deleteSpool();
}

void PrintEngine::printRange(std::int16_t pages) {
  const auto first = askForPage("Starting Page", 1);
  const auto last = first ? askForPage("Ending Page", pages) : std::nullopt;
  if (!last) return deleteSpool();
  RecordFile spool(state_.files, kSpoolName, kPageLength, OpenMode::create, file_number::spool);
  board_.open("Printing to Printer...");
  Document document(desktop_.printer());
  // The page number counts from page 1, the total from the first page printed.
  const int total = *last == pages ? pages : *last - *first + 1;
  std::string buffer(kPageLength, ' ');
  for (int page = *first; page <= *last; ++page) {
    board_.clear();
    board_.print("Printing Page" + numberText(page) + " of" + numberText(total) + "...");
    board_.progress(page - *first + 1, *last - *first + 1);
    // A page that is not in the file is empty.
    const std::size_t there =
        page < 1 ? 0 : spool.readRecords(page, std::as_writable_bytes(std::span(buffer)));
    const auto text = withoutBlanksAround(std::string_view(buffer).substr(0, there));
    if (text.size() == kPageLength) continue;  // a page that was cut is not printed
    document.printSheet(toUtf8(text));
  }
  spool.close();
  board_.close();
  document.end();
  deleteSpool();
}

/// Nothing when the user cancels.
std::optional<std::int16_t> PrintEngine::askForPage(const std::string& prompt, int preset) {
  const auto answer = desktop_.inputBox(prompt, "Printer Data", std::to_string(preset));
  if (!answer) return std::nullopt;
  return leadingWhole(*answer);
}

void PrintEngine::deleteSpool() {
  FileSystem& files = state_.files.fileSystem();
  if (files.exists(kSpoolName)) files.remove(kSpoolName);
}

}  // namespace quillbox
