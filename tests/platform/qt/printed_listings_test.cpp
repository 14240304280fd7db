// A listing from the menu to the paper: sample collections are printed as PDF documents and read
// back.

#include <vector>

#include "forms/about.h"
#include "platform/qt/qt_printer.h"
#include "support/form_fixture.h"
#include "support/machine.h"
#include "support/printed_pdf.h"

namespace quillbox::test {
namespace {

/// A printer that prints, and keeps what it gets.
class KeepingPrinter : public Printer {
 public:
  QtPrinter real;
  std::vector<std::string> sheets;

  void setFont(const std::string& name, double points) override { real.setFont(name, points); }
  double printableHeight() override { return real.printableHeight(); }
  void print(const std::string& text) override {
    sheets.push_back(text);
    real.print(text);
  }
  void newPage() override { real.newPage(); }
  void endDocument() override { real.endDocument(); }
  void dropDocument() override { real.dropDocument(); }
};

/// A scripted desktop with the real printer, for a user who accepts what is offered.
class PrintingDesktop : public FakeDesktop {
 public:
  KeepingPrinter keepingPrinter;
  Printer& printer() override { return keepingPrinter; }
  std::optional<std::string> inputBox(const std::string& /*prompt*/, const std::string& /*title*/,
                                      const std::string& preset) override {
    return preset;
  }
};

class PrintedListing : public FormTest, public testing::WithParamInterface<const char*> {
 protected:
  PrintedListing() {
    QtPrinter& real = printing_.keepingPrinter.real;
    real.printToPdf(QString::fromStdString(path("listing.pdf")));
    state_ = std::make_unique<AppState>(files_);
    program_ = std::make_unique<Program>(*state_, printing_);
    modQBX1_ = std::make_unique<modQBX1>(*program_);
    printing_.expectMessage("QBX V1.71", aboutText(), MessageIcon::information);
    program_->run([&] { modQBX1_->Main({}); });
  }
  ~PrintedListing() override {
    modQBX1_.reset();
    program_.reset();
  }

  void openSample(const std::string& name) {
    writeFile(path(name), readFile(std::string(QUILLBOX_SOURCE_DIR) + "/samples/" + name));
    printing_.tolerateOpen = path(name);
    choose("O");
    ASSERT_GT(state_->Count, 0);
  }

  void printAll() {
    printing_.expectPrint(PrintChoice{false});
    const std::string editor = formName();
    choose("PrintList");
    printing_.expectNothingLeft();
    EXPECT_EQ(formName(), editor);
  }

  PrintingDesktop printing_;
};

std::string sampleName(const testing::TestParamInfo<const char*>& info) {
  std::string name = info.param;
  std::erase(name, '.');
  return name;
}

INSTANTIATE_TEST_SUITE_P(Samples, PrintedListing,
                         testing::Values("jazz.MCS", "tapes.VCS", "disks.SCS", "longbox.CCS",
                                         "shelf.BCS", "sounds.WCS", "tunes.ICS", "pictures.GCS",
                                         "songs.MPS"),
                         sampleName);

/// The characters of a text without the blanks and line ends between them.
QString characters(const QString& text) { return text.simplified().remove(QLatin1Char(' ')); }

TEST_P(PrintedListing, IsCompleteAndInsideThePaper) {
  QUILLBOX_NEEDS(pdfReader);
  openSample(GetParam());
  const int count = state_->Count;
  printAll();
  const auto& sheets = printing_.keepingPrinter.sheets;
  const auto pages = pagesOf(path("listing.pdf"));
  ASSERT_EQ(pages.size(), sheets.size()) << "a page is a sheet";
  int items = 0;
  for (std::size_t page = 0; page < pages.size(); ++page) {
    SCOPED_TRACE(page + 1);
    const QString sheet = QString::fromStdString(sheets[page]);
    // A line that is too wide for the paper continues on the next one.
    EXPECT_EQ(characters(pages[page].lines.join(QLatin1Char(' '))), characters(sheet));
    ASSERT_FALSE(pages[page].lines.empty());
    EXPECT_TRUE(pages[page].lines.front().endsWith(QStringLiteral("Page # %1").arg(page + 1)));
    items += static_cast<int>(sheet.count(QStringLiteral("     Record #")));
    expectInsideThePage(pages[page]);
  }
  EXPECT_EQ(items, count);
}

}  // namespace
}  // namespace quillbox::test
