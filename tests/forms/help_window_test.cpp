#include "forms/help_window.h"

#include <QPushButton>
#include <QScrollBar>
#include <QTextBlock>
#include <QTextBrowser>
#include <QTextDocument>

#include "support/form_fixture.h"

namespace quillbox::test {
namespace {

/// A form, the way to it and the page of the manual that tells of it.
struct HelpCase {
  const char* name;
  const char* extension;  ///< of the sample opened; none: the start screen
  std::vector<const char*> steps;
  const char* page;
};

void PrintTo(const HelpCase& help, std::ostream* out) { *out << help.name; }

const HelpCase kCases[] = {
    {"Start", nullptr, {}, "index.md"},
    {"NewCollection", nullptr, {"N"}, "first-collection.md"},
    {"Music", "MCS", {}, "music.md"},
    {"Songs", "MCS", {"EditSongs"}, "lists.md"},
    {"Sort", "MCS", {"SortRecords"}, "sort.md"},
    {"Search", "MCS", {"SearchRecords"}, "search.md"},
    {"Video", "VCS", {}, "video.md"},
    {"Titles", "VCS", {"EditTitles"}, "lists.md"},
    {"Software", "SCS", {}, "software.md"},
    {"Comics", "CCS", {}, "comics.md"},
    {"Books", "BCS", {}, "books.md"},
    {"MediaFiles", "WCS", {}, "media-files.md"},
};

class HelpTest : public FormTest {
 protected:
  void open(const char* extension) {
    const CollectionKind& kind = *kindOfExtension(extension);
    const std::string name = path(std::string("mine.") + extension);
    std::string empty(kind.recordLength, '\0');
    empty.at(2) = static_cast<char>(kind.rules.fileType);
    writeFile(name, empty);
    start();
    desktop_.tolerateOpen = name;
    choose("O");
    desktop_.tolerateOpen.reset();
  }

  static HelpWindow* window() {
    for (QWidget* widget : QApplication::topLevelWidgets())
      if (auto* found = dynamic_cast<HelpWindow*>(widget)) return found;
    return nullptr;
  }

  static QTextBrowser& browser() { return *window()->findChild<QTextBrowser*>(); }

  static void pressHelp(const char* name) {
    auto* button = window()->findChild<QPushButton*>(QString::fromUtf8(name));
    ASSERT_NE(button, nullptr) << name;
    EXPECT_TRUE(button->isEnabled()) << name;
    QTest::mouseClick(button, Qt::LeftButton);
  }
};

class HelpOnForm : public HelpTest, public testing::WithParamInterface<HelpCase> {};

TEST_P(HelpOnForm, OpensWhereTheUserIs) {
  if (GetParam().extension == nullptr)
    start();
  else
    open(GetParam().extension);
  for (const char* step : GetParam().steps) choose(step);
  const std::string before = formName();
  EXPECT_EQ(helpPage(), "");
  QTest::keyClick(form().focusWidget() != nullptr ? form().focusWidget() : &form(), Qt::Key_F1);
  EXPECT_EQ(helpPage(), GetParam().page);
  EXPECT_GT(browser().document()->characterCount(), 500);
  EXPECT_EQ(formName(), before);
}

INSTANTIATE_TEST_SUITE_P(Each, HelpOnForm, testing::ValuesIn(kCases),
                         [](const auto& each) { return std::string(each.param.name); });

TEST_F(HelpTest, OpensFromTheHelpMenus) {
  start();
  choose("ContentBegin");
  EXPECT_EQ(helpPage(), "index.md");
  start();
  open("MCS");
  choose("MusicContents");
  EXPECT_EQ(helpPage(), "music.md");
}

TEST_F(HelpTest, NamesThePageInItsTitle) {
  start();
  choose("ContentBegin");
  const QString title = browser().document()->firstBlock().text();
  EXPECT_FALSE(title.isEmpty());
  EXPECT_EQ(window()->windowTitle(), title + " - Quillbox Help");
}

TEST_F(HelpTest, GoesBackAndForward) {
  start();
  choose("ContentBegin");
  EXPECT_FALSE(window()->findChild<QPushButton*>("cmdBack")->isEnabled());
  browser().setSource(browser().source().resolved(QUrl("sort.md")));
  EXPECT_EQ(helpPage(), "sort.md");
  pressHelp("cmdBack");
  EXPECT_EQ(helpPage(), "index.md");
  pressHelp("cmdForward");
  EXPECT_EQ(helpPage(), "sort.md");
  pressHelp("cmdAllPages");
  EXPECT_EQ(helpPage(), "index.md");
  pressHelp("cmdClose");
  EXPECT_EQ(helpPage(), "");
}

TEST_F(HelpTest, ClosesWithEscapeAndOpensAgain) {
  start();
  choose("ContentBegin");
  QTest::keyClick(&browser(), Qt::Key_Escape);
  EXPECT_EQ(helpPage(), "");
  choose("ContentBegin");
  EXPECT_EQ(helpPage(), "index.md");
}

TEST_F(HelpTest, IsNoFormOfItsOwn) {
  open("MCS");
  choose("MusicContents");
  choose("ExitCollection");
  // The desktop is empty but for the help, so the start screen comes up.
  EXPECT_EQ(formName(), "frmBegin2");
  EXPECT_EQ(helpPage(), "music.md");
}

TEST_F(HelpTest, ShowsPicturesNoWiderThanTheWindow) {
  start();
  choose("ContentBegin");
  for (const int width : {500, 1400}) {
    window()->resize(width, 600);
    QApplication::processEvents();
    choose("ContentBegin");
    browser().setSource(QUrl("qrc:/docs/manual/music.md"));
    EXPECT_EQ(browser().horizontalScrollBar()->maximum(), 0) << width;
    const auto picture =
        browser().loadResource(QTextDocument::ImageResource, QUrl("../forms/music.png"));
    ASSERT_TRUE(picture.canConvert<QImage>());
    EXPECT_FALSE(picture.value<QImage>().isNull());
    EXPECT_LT(picture.value<QImage>().width(), browser().viewport()->width()) << width;
  }
}

}  // namespace
}  // namespace quillbox::test
