// The complete menus of the start screen and of each editor: every name and caption, in order.

#include <QToolBar>

#include "support/form_fixture.h"

namespace quillbox::test {
namespace {

using Lines = std::vector<std::string>;

struct MenuTree {
  ModelKind kind;
  Lines lines;  ///< items are indented below their menu
};

void PrintTo(const MenuTree& tree, std::ostream* out) { *out << tree.kind.name; }

const MenuTree kTrees[] = {
    {kMusic,
     {"FileMenu &File", "  NewFile &New File", "  OpenFile &Open File",
      "  ExitCollection E&xit Collection", "EditMenu &Edit", "  EditSongs &Songs",
      "  SortRecords S&ort Records", "  SearchRecords S&earch Records", "PrintMenu P&rint",
      "  PrintList &Print List", "  PrintSetup &Setup Printer", "  ExportData &Export Data",
      "SetupMenu Se&tup", "  MediaMenu &Media Types", "HelpMenu &Help", "  MusicContents &Contents",
      "  AboutMusic &About"}},
    {kVideo,
     {"FileMenu &File", "  NewFile &New File", "  OpenFile &Open File",
      "  ExitCollection E&xit Collection", "EditMenu &Edit", "  EditTitles Edit &Titles",
      "  SortRecords S&ort Records", "  SearchRecords S&earch Records", "PrintMenu P&rint",
      "  PrintList &Print List", "  SetupPrinter &Setup Printer", "  ExportData &Export Data",
      "HelpVideos &Help", "  AboutVideos &About", "  ContentVideos &Contents"}},
    {kSoftware,
     {"FileMenu &File", "  NewFile &New File", "  OpenFile &Open File",
      "  ExitCollection E&xit Collection", "EditMenu &Edit", "  EditTitles Edit &Titles",
      "  SortRecords S&ort Records", "  Search S&earch Records", "PrintMenu P&rint",
      "  PrintList &Print List", "  PrintSetup Printer &Setup", "  ExportData &Export Data",
      "HelpMenu &Help", "  AboutSoftware &About", "  ContentSoftware &Contents"}},
    {kComics,
     {"FileMenu &File", "  NewFile &New Collection", "  OpenFile &Open Collection",
      "  ExitCollection E&xit Collection", "EditMenu &Edit", "  EditTitles Edit &Titles",
      "  SortRecords S&ort Records", "  Search S&earch", "PrintMenu &Print",
      "  PrintList &Print List", "  PrinterSetup &Setup Printer", "  ExportData &Export Data",
      "HelpMenu &Help", "  AboutComic &About", "  ContentComic &Content"}},
    {kBooks,
     {"FileMenu &File", "  NewFile &New", "  OpenFile &Open", "  ExitBooks E&xit", "EditMenu &Edit",
      "  SortBooks &Sort", "  SearchBooks S&earch", "PrintMenu &Print",
      "  PrinterSetup &Setup Printer", "  PrintList &Print List", "  ExportData &Export Data",
      "HelpMenu &Help", "  AboutBooks &About", "  ContentsBooks Contents"}},
    {kWaves,
     {"FileMenu &File", "  NewFile &New", "  OpenFile &Open", "  ExitCollection E&xit",
      "EditMenu &Edit", "  SortCollection S&ort Collection",
      "  SearchCollection S&earch Collection", "PrintMenu &Print", "  PrintList Print &List",
      "  PrintSetup Printer &Setup", "  ExportData &Export Data", "LoadMenu &Load",
      "HelpMenu &Help", "  AboutCollection &About"}},
};

Lines linesOf(const QList<QAction*>& actions, const std::string& indent = "") {
  Lines lines;
  for (const QAction* action : actions) {
    EXPECT_TRUE(action->isEnabled() && action->isVisible());
    lines.push_back(indent + action->objectName().toStdString() + " " +
                    action->text().toStdString());
    if (action->menu() == nullptr) continue;
    const Lines items = linesOf(action->menu()->actions(), indent + "  ");
    lines.insert(lines.end(), items.begin(), items.end());
  }
  return lines;
}

class Menus : public EditorTest, public testing::WithParamInterface<MenuTree> {
 protected:
  Menus() : EditorTest(GetParam().kind) {}
};

INSTANTIATE_TEST_SUITE_P(Editors, Menus, testing::ValuesIn(kTrees),
                         [](const auto& tree) { return tree.param.kind.name; });

TEST_P(Menus, AreWholeAndInOrder) {
  open({item("A")});
  EXPECT_EQ(linesOf(form().menuBar()->actions()), GetParam().lines);
}

TEST_P(Menus, LeadToThePrinterTheAboutBoxAndThePageOfTheManual) {
  open({item("A")});
  desktop_.expectMessage(kind().aboutTitle,
                         std::string("Quillbox V1.71\n") + kind().aboutArea +
                             " Area Version: V1.71\n\nA catalogue for "
                             "everything you collect, made by people who "
                             "collect.",
                         MessageIcon::information);
  choose(kind().menu.about);
  choose(kind().menu.printerSetup);
  EXPECT_EQ(desktop_.printerSetups, 1);
  if (kind().menu.contents == nullptr)
    QTest::keyClick(&form(), Qt::Key_F1);
  else
    choose(kind().menu.contents);
  EXPECT_EQ(helpPage(), kind().helpPage);
  EXPECT_EQ(formName(), kind().formName);
}

class StartMenus : public FormTest {};

TEST_F(StartMenus, AreWholeAndInOrderAndSoIsTheToolbar) {
  start();
  EXPECT_EQ(linesOf(form().menuBar()->actions()),
            (Lines{"HelpBegin &Help", "  ContentBegin &Contents", "  AboutBegin &About"}));
  EXPECT_EQ(linesOf(control<QToolBar>("tbrBegin").actions()),
            (Lines{"N New Collection", "O Open Collection", "X Exit"}));
}

}  // namespace
}  // namespace quillbox::test
