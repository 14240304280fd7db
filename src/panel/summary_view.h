#pragma once

#include <QByteArray>
#include <optional>

#include "forms/program.h"
#include "overview/summary.h"
#include "panel/grouped_view.h"

class QPushButton;

namespace quillbox {

class SummarySheets;

/// How many items there are, what they cost and are worth: in total, and as bars for each grouping
/// of the kind. It can be printed, and saved as a document or a picture.
class SummaryView : public GroupedView {
 public:
  /// A printout has the name of the program's open collection, which is never overwritten.
  SummaryView(const CollectionKind& kind, RecordTexts texts, Program& program, PanelOwner owner);

  void take(int item, std::span<const std::byte> record) override;
  void cutTo(int count) override;

 protected:
  void forget() override;
  Shown gather() override;
  QString textOf(const GroupedCell& cell) const override;
  QVariant moreOf(const GroupedCell& cell, int role) const override;
  std::string idOf(const GroupedCell& cell) const override;
  void choose(const GroupedCell& cell) override;

 private:
  const BarGroup& groupAt(const GroupedCell& cell) const;
  const Bar& barAt(const GroupedCell& cell) const;
  bool hasPrices() const { return priceFieldsOf(kind_).cost != nullptr; }
  QString totalsText() const;
  QPushButton* addButton(const char* name, const char* caption, const char* what,
                         void (SummaryView::*handler)());
  void enableButtons();
  void widenNumbers();
  SummarySheets sheets(std::size_t mostBars) const;
  void printSheets();
  void save();

  const CollectionKind& kind_;
  RecordTexts texts_;
  Program& program_;
  PanelOwner owner_;
  std::optional<Summary> summary_;
  SummaryFigures figures_;  // as shown
  std::vector<int> most_;   // the number of items in the longest bar of each grouping
  QPushButton* print_ = nullptr;
  QPushButton* save_ = nullptr;
};

}  // namespace quillbox
