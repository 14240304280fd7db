#pragma once

#include <optional>

#include "overview/columns.h"
#include "overview/doubles.h"
#include "panel/grouped_view.h"

class QPushButton;

namespace quillbox {

/// Items that occur more than once, in groups to step through.
class DoublesView : public GroupedView {
 public:
  DoublesView(const CollectionKind& kind, RecordTexts texts, PanelOwner owner);

  void take(int item, std::span<const std::byte> record) override;
  void cutTo(int count) override;

 protected:
  void forget() override;
  Shown gather() override;
  QString textOf(const GroupedCell& cell) const override;
  std::string idOf(const GroupedCell& cell) const override;
  int itemOf(const GroupedCell& cell) const override;
  void choose(const GroupedCell& cell) override;

 private:
  QString shownText(int item, std::size_t column) const;
  void showNext();

  const CollectionKind& kind_;
  RecordTexts recordTexts_;
  PanelOwner owner_;
  std::vector<const Column*> shown_;  // the columns after the number
  QPushButton* next_;
  std::optional<Doubles> doubles_;
  std::vector<std::string> texts_;        // for each item, the contents of its columns
  std::vector<std::vector<int>> groups_;  // as shown
};

}  // namespace quillbox
