#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "platform/board.h"
#include "platform/desktop.h"
#include "records/app_state.h"
#include "records/record_block.h"
#include "records/record_file.h"

namespace quillbox {

/// Line 0 is the page heading, to which the page number is added; lines 1 and following are a
/// block. Texts are record characters. The engine empties each line it has used.
using PrintLines = std::array<std::string, 101>;

/// Where the pages go, and two commands that PrintData accepts instead.
namespace print_mode {
inline constexpr std::int16_t printer = 0;
inline constexpr std::int16_t textFile = 255;
inline constexpr std::int16_t cancelled = -1;
inline constexpr auto reset = static_cast<std::int16_t>(33535);      // -32001
inline constexpr auto pageCount = static_cast<std::int16_t>(33536);  // -32000
}  // namespace print_mode

/// Composes a printout page by page in the spool file, one record for each page, and delivers the
/// pages. A printout is OpenPrinter, PrintData with reset, PrintData for each block, PrintData with
/// pageCount, PrintOut. State between the calls is kept from one printout to the next. The spool
/// file exists from the first block on; it has all pages once they are counted.
class PrintEngine {
 public:
  /// All three must outlive the engine.
  PrintEngine(AppState& state, Desktop& desktop, Board& board);

  /// Asks where to print: leaves `mode` unchanged for the printer, or sets it to textFile or
  /// cancelled. Cancelling the save dialog has no effect. Errors are ignored.
  void OpenPrinter(std::int16_t& mode);

  /// Measures the page, then adds lines 1 to `count` as one block, which is never split. `mode`
  /// reset begins a new printout, even if the old spool file cannot be deleted; pageCount sets
  /// `count` to the number of pages. Pages that could not be written are written with a later
  /// block, or when they are delivered.
  void PrintData(PrintLines& lines, std::int16_t& count, std::int16_t mode);

  /// Delivers the pages: asks for a range and prints it, or writes all pages to the text file after
  /// the line `header`. Deletes the spool file unless `mode` is cancelled. Run-time error 55 when
  /// the text file is the open collection or the spool file itself.
  void PrintOut(std::int16_t mode, std::int16_t pages, const std::string& header);

  /// The text file that a listing was written to, or that was last chosen.
  const std::string& fileName() const { return fileName_; }

  /// Shows the platform's printer set-up dialog, named like an editor's control.
  void PrinterSetup(const std::string& dialogName = {});

 private:
  // A page as a fixed text: padded with blanks, cut to the width. The padding is not kept in
  // memory.
  static constexpr std::size_t kPageLength = 5520;

  void reset(PrintLines& lines);
  void measurePage();
  std::string heading(const PrintLines& lines) const;
  void addBlock(PrintLines& lines, std::int16_t count, std::int16_t mode);
  void addLines(PrintLines& lines, std::int16_t count);
  void addLine(std::string& line);
  void setPageText(std::string_view text);
  void startNextPage(const PrintLines& lines, std::int16_t mode);
  void writePage();

  void writeToTextFile(std::int16_t pages, const std::string& header);
  void printRange(std::int16_t pages);
  std::optional<std::int16_t> askForPage(const std::string& prompt, int preset);
  void openSpool();
  void writePages();
  void closeSpool();
  void deleteSpool();

  AppState& state_;
  Desktop& desktop_;
  Board& board_;

  std::optional<RecordFile> spool_;  // while pages are composed
  RecordBlock pages_{kPageLength};   // pages not yet in the spool file
  std::string fileName_;             // of the text file, as last chosen

  /// The page being composed.
  struct Composed {
    std::int16_t page = 0;
    std::string pageText = std::string(kPageLength, '\0');
    std::int16_t lineCount = 0;    ///< lines on the page, without the heading
    std::int16_t linesOnPage = 0;  ///< the last block line added to the page
    std::int16_t linesPerPage = 0;
  } now_;
  bool isChanged_ = true;       // since it was last added to the pages
  bool holdsOldPages_ = false;  // the spool file, which could not be deleted
};

}  // namespace quillbox
