#pragma once

#include <gtest/gtest.h>

#include <QLabel>
#include <QPushButton>

#include "forms/sheets.h"
#include "panel/summary_view.h"
#include "support/form_fixture.h"
#include "support/panel_views.h"

namespace quillbox::test {

/// Of the dialog that saves a summary.
inline const std::string kSummaryFilter =
    "PDF Documents and PNG Pictures (*.pdf, *.png)|*.pdf;*.png";

/// A printer for drawings that records its calls.
class FakeSheetPrinter : public SheetPrinter {
 public:
  bool fails = false;
  std::string title;
  std::string documentName;
  int sheets = 0;

  bool printSheets(Sheets& printed, const std::string& asked, const std::string& name) override {
    if (fails) throw RunTimeError(ErrorNumber::deviceIo, "the printer");
    title = asked;
    documentName = name;
    sheets = printed.layOut({500, 700});
    return true;
  }
};

/// An album with that publisher, genre and prices.
inline std::string pricedAlbum(std::string_view company, int genre, std::int64_t cost,
                               std::int64_t worth) {
  std::string item = itemWith(kMusic, {{"txtArtist", "Artist"}, {"txtRecordCo", company}});
  item = withNumber(kMusic, std::move(item), "cmbGenre", genre);
  item = withNumber(kMusic, std::move(item), "txtAquireCost", cost);
  return withNumber(kMusic, std::move(item), "txtCurrCost", worth);
}

inline std::string genre(int index) { return builtInChoice(*musicField("Genre"), index); }

/// A summary with the program, which has a collection open.
class SummaryViewTest : public FormTest {
 protected:
  SummaryViewTest() {
    writeFile(path(), musicFile({test::album("A")}));
    start({path()});
    program_->setSheetPrinter(printer_);
  }

  SummaryView& open(const ModelKind& kind = kMusic) {
    view_ = std::make_unique<SummaryView>(kind.row(), overviewTexts(), *program_, asked_.owner());
    view_->resize(700, 500);
    showWindow(*view_);
    return *view_;
  }
  void openWithAlbums() {
    open();
    std::string deleted = pricedAlbum("Gone", 0, 99'0000, 0);
    putBytes(deleted, 0, fixedText("DETELED", 50));
    takeAll(*view_,
            {pricedAlbum("Blue Note", 1, 12'5000, 20'0000), pricedAlbum("Verve", 2, 1'0000, 2'0000),
             deleted, pricedAlbum("BLUE NOTE", 1, 0, 1'0000)});
  }
  QTreeView& tree() { return treeOf(*view_); }
  QPushButton& viewButton(const char* name) {
    return *view_->findChild<QPushButton*>(QString::fromUtf8(name));
  }
  void click(const char* name) { QTest::mouseClick(&viewButton(name), Qt::LeftButton); }
  std::string line() { return shownLabel(*view_, "lblSummary"); }

  /// The row of a grouping's bar.
  QModelIndex bar(const char* grouping, const std::string& label, int column = 0) {
    for (int group = 0; group < groupsIn(tree()); ++group) {
      if (rowAt(tree(), group, -1).data().toString() != QString::fromUtf8(grouping)) continue;
      for (int row = 0; row < rowsOf(tree()).sizes()[static_cast<std::size_t>(group)]; ++row)
        if (rowAt(tree(), group, row).data().toString().toStdString() == label)
          return rowAt(tree(), group, row, column);
    }
    ADD_FAILURE() << grouping << ": " << label;
    return {};
  }

  /// Saves under that name; the dialog offers the collection's name.
  void saveAs(std::optional<std::string> answer) {
    desktop_.expectSave("Save Summary", kSummaryFilter, "jazz.pdf", std::move(answer));
    click("cmdSaveSummary");
    desktop_.expectNothingLeft();
  }

  AskedOwner asked_;
  FakeSheetPrinter printer_;
  std::unique_ptr<SummaryView> view_;
};

}  // namespace quillbox::test
