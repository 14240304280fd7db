#pragma once

#include <optional>

#include "overview/loans.h"
#include "panel/grouped_view.h"
#include "platform/desktop.h"

namespace quillbox {

/// Who has borrowed what, since when and until when; overdue loans have a colour and a word for it.
class LoansView : public GroupedView {
 public:
  /// For a kind that has loans. Today's date and the date form come from the desktop.
  LoansView(const CollectionKind& kind, Desktop& desktop, PanelOwner owner);

  void take(int item, std::span<const std::byte> record) override;
  void cutTo(int count) override;

 protected:
  void forget() override;
  Shown gather() override;
  QString textOf(const GroupedCell& cell) const override;
  QVariant moreOf(const GroupedCell& cell, int role) const override;
  std::string idOf(const GroupedCell& cell) const override;
  int itemOf(const GroupedCell& cell) const override;
  void choose(const GroupedCell& cell) override;

 private:
  const BorrowerLoans& borrowerAt(const GroupedCell& cell) const;
  const Loan& loanAt(const GroupedCell& cell) const;
  bool isOverdue(const Loan& loan) const;

  const CollectionKind& kind_;
  Desktop& desktop_;
  PanelOwner owner_;
  std::optional<Loans> loans_;
  std::vector<BorrowerLoans> borrowers_;  // as shown
  std::optional<double> today_;
};

/// The colour of overdue loans: readable in a list with a light or a dark palette.
QColor overdueColor(const QPalette& palette);

}  // namespace quillbox
