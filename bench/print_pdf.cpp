// Prints the listing of a music collection as a PDF document, and draws the same lines directly
// with the toolkit: bench_print_pdf COLLECTION COUNT
//
// Prints the two medians in milliseconds. The documents are created in the current folder.

#include <QGuiApplication>
#include <QPainter>
#include <QPdfWriter>
#include <cstdio>
#include <cstdlib>
#include <span>
#include <string>
#include <vector>

#include "measuring.h"
#include "median.h"
#include "platform/disk_file_system.h"
#include "platform/qt/qt_desktop.h"
#include "platform/qt/qt_printer.h"
#include "printing/listing.h"

namespace {

using namespace quillbox;

constexpr int kRounds = 5;
constexpr double kPitch = 10;  // points

/// Keeps the pages of a listing.
class KeptPages : public Printer {
 public:
  std::vector<std::string> pages;
  void setFont(const std::string&, double) override {}
  double printableHeight() override { return 756; }
  void print(const std::string& text) override { pages.push_back(text); }
  void newPage() override {}
  void endDocument() override {}
  void dropDocument() override {}
};

/// A user who prints everything on that printer.
class PrintingDesktop : public QtDesktop {
 public:
  explicit PrintingDesktop(Printer& printer) : printer_(printer) {}
  std::optional<PrintChoice> printDialog(const std::string&, const std::string&) override {
    return PrintChoice{};
  }
  std::optional<std::string> inputBox(const std::string&, const std::string&,
                                      const std::string& preset) override {
    return preset;
  }
  Printer& printer() override { return printer_; }

 private:
  Printer& printer_;
};

void list(const std::string& collection, int count, Printer& printer) {
  const CollectionKind& kind = *kindOfExtension("MCS");
  DiskFileSystem files;
  AppState state(files);
  state.currentPath = collection;
  state.Count = static_cast<std::int16_t>(count);
  PrintingDesktop desktop(printer);
  NoBoard board;
  PrintEngine engine(state, desktop, board);
  const Listing listing(kind, {[](const Field&, int) { return std::string(); }, "M/d/yy"});
  std::int16_t mode = print_mode::printer;
  engine.OpenPrinter(mode);
  const std::int16_t pages = composePages(state.files, state, kind, listing, mode, engine, board);
  engine.PrintOut(mode, pages, "");
}

void draw(std::span<const std::string> pages) {
  QPdfWriter document(QStringLiteral("bare.pdf"));
  QPainter painter(&document);
  QFont font(QStringLiteral("Courier New"));
  font.setStyleHint(QFont::TypeWriter);
  font.setPointSizeF(kPitch);
  painter.setFont(font);
  const double pitch = kPitch * document.logicalDpiY() / 72;
  for (const std::string& page : pages) {
    if (&page != pages.data()) document.newPage();
    double baseline = pitch;
    for (const QString& line : QString::fromStdString(page).split(QStringLiteral("\r\n"))) {
      painter.drawText(QPointF(0, baseline), line);
      baseline += pitch;
    }
  }
}

}  // namespace

int main(int argc, char** argv) {
  const QGuiApplication application(argc, argv);
  if (argc != 3) return EXIT_FAILURE;
  const std::string collection = argv[1];
  const int count = std::atoi(argv[2]);
  KeptPages kept;
  list(collection, count, kept);
  std::vector<double> ours;
  std::vector<double> peers;
  for (int round = 0; round < kRounds; ++round) {
    ours.push_back(bench::milliseconds([&] {
      QtPrinter printer;
      printer.printToPdf(QStringLiteral("quillbox.pdf"));
      list(collection, count, printer);
    }));
    peers.push_back(bench::milliseconds([&] { draw(kept.pages); }));
  }
  std::printf("%f %f\n", bench::median(ours), bench::median(peers));
  return EXIT_SUCCESS;
}
