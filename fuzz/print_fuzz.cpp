// Blocks of any lines on pages of any height, to paper and to a text file.

#include "fuzz/fuzzed_desktop.h"
#include "fuzz/input.h"
#include "printing/print_engine.h"
#include "support/memory_files.h"

namespace quillbox::fuzz {
namespace {

using test::MemoryFiles;

constexpr const char* kSpool = "printer.tmp";
constexpr std::size_t kPageLength = 5520;
constexpr int kMostLines = 100;
constexpr int kMostPages = 500;  // to be printed; pages not in the file take time, too

enum class Step { block, height, heading, printout, count };

class Printout {
 public:
  explicit Printout(Input input) : input_(input) { engine_.PrinterSetup(); }

  void run() {
    begin();
    while (!input_.empty()) take(static_cast<Step>(input_.byte() % static_cast<int>(Step::count)));
    end();
  }

 private:
  void take(Step step) {
    switch (step) {
      case Step::block:
        return addBlock();
      case Step::height:
        desktop_.paper.height = input_.byte() % 2 == 0 ? input_.byte() * 10.0 : input_.real();
        return;
      case Step::heading:
        lines_.front() = input_.line();
        return;
      case Step::printout:
        end();
        return begin();
      case Step::count:
        return;
    }
  }

  void begin() {
    desktop_.toFile = input_.byte() % 2 == 0;
    mode_ = print_mode::printer;
    engine_.OpenPrinter(mode_);
    require(mode_ == (desktop_.toFile ? print_mode::textFile : print_mode::printer),
            "it is printed to where the user wants");
    std::int16_t none = 0;
    engine_.PrintData(lines_, none, print_mode::reset);
    require(!files_.exists(kSpool), "a printout begins without pages");
    hasPage_ = false;
  }

  void addBlock() {
    std::int16_t count = input_.byte() % (kMostLines + 1);
    const std::int16_t asked = count;
    for (int line = 1; line <= count; ++line) {
      std::string& text = lines_.at(static_cast<std::size_t>(line));
      text = input_.line();
      // A long line from few bytes: errors are likely where a line exceeds a page.
      if (text.starts_with('\1')) text.append(text.size() * text.size() % (2 * kPageLength), 'x');
    }
    try {
      engine_.PrintData(lines_, count, mode_);
      hasPage_ = true;
      for (int line = 1; line <= count; ++line)
        require(lines_.at(static_cast<std::size_t>(line)).empty(), "a line is taken once");
    } catch (const RunTimeError&) {
      // There is no page of such a height.
    }
    require(count == asked, "a block's length is left alone");
  }

  void end() {
    std::int16_t pages = -1;
    engine_.PrintData(lines_, pages, print_mode::pageCount);
    require(pages >= (hasPage_ ? 1 : 0), "a block is on a page");
    if (files_.exists(kSpool))
      require(files_.bytes(kSpool).size() % kPageLength == 0, "the spool is whole pages");
    if (hasPage_)
      require(files_.bytes(kSpool).size() <= static_cast<std::size_t>(pages) * kPageLength,
              "every page in the file counts");
    answer();
    try {
      engine_.PrintOut(mode_, pages, "Heading");
      require(!files_.exists(kSpool), "the pages are thrown away when they are printed");
      if (mode_ == print_mode::textFile)
        require(files_.bytes(FuzzedDesktop::kListFile).starts_with("Heading\r\n"),
                "the text file begins with its heading");
    } catch (const RunTimeError&) {
      // An answer that is no page, or more pages than there are.
    }
    require(desktop_.paper.sheets == 0, "a document is handed over or dropped");
  }

  void answer() {
    desktop_.answers.clear();
    const unsigned choice = input_.byte();
    if (choice % 4 == 1)
      desktop_.answers = {std::to_string(input_.whole() % kMostPages),
                          std::to_string(input_.whole() % kMostPages)};
    else if (choice % 4 == 2)
      desktop_.answers = {std::nullopt, "1"};
    else if (choice % 4 == 3)
      desktop_.answers = {std::string("1"), std::string(input_.line().substr(0, 3))};
  }

  Input input_;
  MemoryFiles files_;
  AppState state_{files_};
  FuzzedDesktop desktop_;
  NoBoard board_;
  PrintEngine engine_{state_, desktop_, board_};
  PrintLines lines_;
  std::int16_t mode_ = print_mode::printer;
  bool hasPage_ = false;
};

}  // namespace
}  // namespace quillbox::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  quillbox::fuzz::Printout({data, size}).run();
  return 0;
}
