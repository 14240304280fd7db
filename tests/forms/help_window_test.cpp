#include "forms/help_window.h"

#include <QAccessible>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QScrollBar>
#include <QTextBlock>
#include <QTextBrowser>
#include <QTextDocument>
#include <QTextFrame>
#include <QTextTable>

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

TEST_F(HelpTest, IsCalledQuillboxHelpOnEveryPage) {
  start();
  choose("ContentBegin");
  EXPECT_EQ(window()->windowTitle(), "Quillbox Help");
  browser().setSource(browser().source().resolved(QUrl("sort.md")));
  EXPECT_EQ(window()->windowTitle(), "Quillbox Help");
}

TEST_F(HelpTest, IsAWindowToAssistiveTechnology) {
  start();
  choose("ContentBegin");
  auto* spoken = QAccessible::queryAccessibleInterface(window());
  EXPECT_EQ(spoken->role(), QAccessible::Window);
  EXPECT_EQ(spoken->text(QAccessible::Name), "Quillbox Help");
}

TEST_F(HelpTest, ItsButtonsSayWhatTheyDoAndByWhichKeys) {
  struct {
    const char* name;
    const char* caption;
    const char* toolTip;
    bool hasIcon = true;
  } constexpr kButtons[] = {
      {"cmdBack", "&Back", "The page before this one (Alt+B)"},
      {"cmdForward", "&Forward", "The page you came back from (Alt+F)"},
      {"cmdAllPages", "&All Pages", "All pages of the manual (Alt+A)"},
      {"cmdFind", "F&ind", "Find a text on this page (Alt+I or Ctrl+F)"},
      {"cmdClose", "&Close", "Close the manual (Alt+C or Escape)", false},
      {"cmdFindNext", "&Next", "The next place on this page (Alt+N or Enter or F3)", false},
      {"cmdFindPrevious", "&Previous", "The place before (Alt+P or Shift+F3)", false},
  };
  start();
  choose("ContentBegin");
  for (const auto& [name, caption, toolTip, hasIcon] : kButtons) {
    const auto* button = window()->findChild<QPushButton*>(QString::fromUtf8(name));
    ASSERT_NE(button, nullptr) << name;
    EXPECT_EQ(button->text(), caption);
    EXPECT_EQ(button->toolTip(), toolTip);
    EXPECT_EQ(!button->icon().isNull(), hasIcon) << name;
  }
  EXPECT_EQ(window()->findChildren<QPushButton*>().size(), std::ssize(kButtons));
}

TEST_F(HelpTest, ItsTablesHaveSingleThinLines) {
  start();
  choose("ContentBegin");
  browser().setSource(browser().source().resolved(QUrl("keys.md")));
  int tables = 0;
  for (QTextFrame* frame : browser().document()->rootFrame()->childFrames()) {
    const auto* table = qobject_cast<QTextTable*>(frame);
    if (table == nullptr) continue;
    ++tables;
    const QTextTableFormat format = table->format();
    EXPECT_EQ(format.borderStyle(), QTextFrameFormat::BorderStyle_Solid);
    EXPECT_EQ(format.border(), 1);
    EXPECT_TRUE(format.borderCollapse());
    EXPECT_EQ(format.cellSpacing(), 0);
    EXPECT_GT(format.cellPadding(), 0);
  }
  EXPECT_GT(tables, 0);
}

TEST_F(HelpTest, NamesItsTextsForAssistiveTechnology) {
  start();
  choose("ContentBegin");
  EXPECT_EQ(browser().accessibleName(), "Help page");
  const auto* line = window()->findChild<QLineEdit*>("txtFind");
  EXPECT_EQ(line->accessibleName(), "Find on this page:");
  const auto labels = window()->findChildren<QLabel*>();
  const auto caption = std::ranges::find(labels, "Find &on this page:", &QLabel::text);
  ASSERT_NE(caption, labels.end());
  EXPECT_EQ((*caption)->buddy(), line);
}

TEST_F(HelpTest, ShowsAGoodPartOfAPageAtFirst) {
  start();
  choose("ContentBegin");
  const QFontMetrics letters = browser().fontMetrics();
  EXPECT_GE(browser().viewport()->width(), 80 * letters.averageCharWidth());
  EXPECT_GE(browser().viewport()->height(), 30 * letters.height());
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
  // Apart from help the desktop is empty, so the start screen appears.
  EXPECT_EQ(formName(), "frmBegin2");
  EXPECT_EQ(helpPage(), "music.md");
}

/// The line for searching the page, worked with keys.
class HelpFind : public HelpTest {
 protected:
  HelpFind() {
    start();
    choose("ContentBegin");
    EXPECT_TRUE(QTest::qWaitForWindowActive(window()));
  }

  static void key(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
    QTest::keyClick(window()->focusWidget(), key, modifiers);
  }
  static void find(const char* text) {
    key(Qt::Key_F, Qt::ControlModifier);
    QTest::keyClicks(window()->focusWidget(), text);
  }
  static QLineEdit& line() { return *window()->findChild<QLineEdit*>("txtFind"); }
  static std::string said() {
    return window()->findChild<QLabel*>("lblFound")->text().toStdString();
  }
  static int place() { return browser().textCursor().selectionStart(); }
  static std::string found() { return browser().textCursor().selectedText().toStdString(); }
  static int timesOnPage(const QString& text) {
    return static_cast<int>(browser().toPlainText().count(text, Qt::CaseInsensitive));
  }
};

TEST_F(HelpFind, OpensWithItsKeyAndItsButton) {
  EXPECT_FALSE(line().isVisible());
  key(Qt::Key_F, Qt::ControlModifier);
  EXPECT_TRUE(line().isVisible());
  EXPECT_TRUE(line().hasFocus());
  key(Qt::Key_Escape);
  EXPECT_FALSE(line().isVisible());
  EXPECT_EQ(helpPage(), "index.md") << "only the line was closed";
  EXPECT_TRUE(browser().hasFocus());
  pressHelp("cmdFind");
  EXPECT_TRUE(line().hasFocus());
  key(Qt::Key_Escape);
  key(Qt::Key_Escape);
  EXPECT_EQ(helpPage(), "");
}

TEST_F(HelpFind, TheLineHasNoMargins) {
  key(Qt::Key_F, Qt::ControlModifier);
  const QWidget& row = *line().parentWidget();
  QRect all;
  for (const QWidget* control : row.findChildren<QWidget*>(Qt::FindDirectChildrenOnly))
    all |= control->geometry();
  EXPECT_EQ(all, row.rect());
}

TEST_F(HelpFind, FindsWhileTheTextIsTyped) {
  find("coll");
  EXPECT_EQ(found(), "coll");
  const int first = place();
  QTest::keyClicks(&line(), "ection");
  EXPECT_EQ(QString::fromStdString(found()).toLower(), "collection");
  EXPECT_GE(place(), first);
  EXPECT_EQ(said(), "");
}

TEST_F(HelpFind, GoesFromPlaceToPlaceBothWaysAndRound) {
  find("collection");
  const int times = timesOnPage("collection");
  ASSERT_GT(times, 2);
  std::vector<int> places = {place()};
  for (int step = 1; step < times; ++step) {
    key(step % 2 == 0 ? Qt::Key_Return : Qt::Key_F3);
    EXPECT_GT(place(), places.back());
    EXPECT_EQ(said(), "");
    places.push_back(place());
  }
  key(Qt::Key_F3);
  EXPECT_EQ(place(), places.front());
  EXPECT_EQ(said(), "Found from the beginning again");
  key(Qt::Key_F3, Qt::ShiftModifier);
  EXPECT_EQ(place(), places.back());
  EXPECT_EQ(said(), "Found from the end again");
  key(Qt::Key_Return, Qt::ShiftModifier);
  EXPECT_EQ(place(), places.at(places.size() - 2));
  pressHelp("cmdFindNext");
  EXPECT_EQ(place(), places.back());
  pressHelp("cmdFindPrevious");
  EXPECT_EQ(place(), places.at(places.size() - 2));
}

TEST_F(HelpFind, SaysWhatIsNotOnThePageAndKeepsItsPlace) {
  find("collection");
  const int before = place();
  line().selectAll();
  QTest::keyClicks(&line(), "##");
  EXPECT_EQ(said(), "Not on this page");
  EXPECT_EQ(place(), before);
  line().selectAll();
  key(Qt::Key_Delete);
  EXPECT_EQ(said(), "");
}

TEST_F(HelpFind, TheKeyGoesOnWhenTheLineIsClosed) {
  find("collection");
  const int before = place();
  key(Qt::Key_Escape);
  key(Qt::Key_F3);
  EXPECT_GT(place(), before);
}

TEST_F(HelpFind, WithoutATextTheKeyAsksForOne) {
  key(Qt::Key_F3);
  EXPECT_TRUE(line().hasFocus());
}

/// Letters of other sizes.
using HelpZoom = HelpFind;

TEST_F(HelpZoom, ItsKeysEnlargeShrinkAndReset) {
  const qreal usual = browser().font().pointSizeF();
  key(Qt::Key_Plus, Qt::ControlModifier);
  const qreal larger = browser().font().pointSizeF();
  EXPECT_GT(larger, usual);
  EXPECT_EQ(browser().document()->defaultFont().pointSizeF(), larger);
  key(Qt::Key_Equal, Qt::ControlModifier);
  EXPECT_GT(browser().font().pointSizeF(), larger);
  key(Qt::Key_0, Qt::ControlModifier);
  EXPECT_DOUBLE_EQ(browser().font().pointSizeF(), usual);
  key(Qt::Key_Minus, Qt::ControlModifier);
  EXPECT_LT(browser().font().pointSizeF(), usual);
}

TEST_F(HelpZoom, StaysForTheSession) {
  key(Qt::Key_Plus, Qt::ControlModifier);
  const qreal larger = browser().font().pointSizeF();
  browser().setSource(browser().source().resolved(QUrl("sort.md")));
  EXPECT_EQ(browser().font().pointSizeF(), larger);
  pressHelp("cmdClose");
  choose("ContentBegin");
  EXPECT_EQ(browser().font().pointSizeF(), larger);
}

TEST_F(HelpZoom, EndsWhereLettersCanStillBeRead) {
  for (int step = 0; step < 100; ++step) key(Qt::Key_Minus, Qt::ControlModifier);
  EXPECT_GT(browser().font().pointSizeF(), 2);
  for (int step = 0; step < 200; ++step) key(Qt::Key_Plus, Qt::ControlModifier);
  EXPECT_LT(browser().font().pointSizeF(), 50);
}

TEST_F(HelpTest, ShowsThePicturesOfThePaletteInUse) {
  const QPalette before = QApplication::palette();
  start();
  choose("ContentBegin");
  browser().setSource(QUrl("qrc:/docs/manual/music.md"));
  const auto shown = [] {
    return browser()
        .loadResource(QTextDocument::ImageResource, QUrl("../forms/music.png"))
        .value<QImage>()
        .pixelColor(2, 60)
        .lightness();
  };
  EXPECT_GT(shown(), 128);
  const QColor charcoal(53, 53, 53);
  QApplication::setPalette(QPalette(charcoal, charcoal));
  QApplication::processEvents();
  EXPECT_LT(shown(), 128);
  QApplication::setPalette(before);
  QApplication::processEvents();
  EXPECT_GT(shown(), 128);
}

TEST_F(HelpTest, KeepsItsPlaceWhenThePaletteChanges) {
  const QPalette before = QApplication::palette();
  start();
  choose("ContentBegin");
  browser().setSource(QUrl("qrc:/docs/manual/music.md"));
  browser().verticalScrollBar()->setValue(300);
  const QColor charcoal(53, 53, 53);
  QApplication::setPalette(QPalette(charcoal, charcoal));
  QApplication::processEvents();
  EXPECT_EQ(browser().verticalScrollBar()->value(), 300);
  QApplication::setPalette(before);
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
