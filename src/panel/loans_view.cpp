#include "panel/loans_view.h"

#include <QColor>
#include <QPalette>
#include <utility>

#include "forms/qt_text.h"
#include "text/date_text.h"

namespace quillbox {
namespace {

enum LoanColumn { kArtist, kAlbum, kSince, kDue, kBooklet };

}  // namespace

QColor overdueColor(const QPalette& palette) {
  constexpr int middle = 128;
  const bool isDark = palette.color(QPalette::Base).lightness() < middle;
  return isDark ? QColor(0xff, 0x8f, 0x85) : QColor(0xb0, 0x00, 0x20);
}

LoansView::LoansView(const CollectionKind& kind, Desktop& desktop, PanelOwner owner)
    : GroupedView({QStringLiteral("Loans"),
                   QStringLiteral("Loans"),
                   QStringLiteral("Nothing is on loan"),
                   {{QStringLiteral("Artist"), 26},
                    {QStringLiteral("Album"), 26},
                    {QStringLiteral("Since"), 12},
                    {QStringLiteral("Due"), 20},
                    {QStringLiteral("Booklet"), 10}}}),
      kind_(kind),
      desktop_(desktop),
      owner_(std::move(owner)) {
  loans_.emplace(kind_, desktop_.shortDateForm());
}

void LoansView::forget() {
  borrowers_.clear();
  loans_.emplace(kind_, desktop_.shortDateForm());
}

void LoansView::take(int item, std::span<const std::byte> record) { loans_->take(item, record); }

void LoansView::cutTo(int count) { loans_->cutTo(count); }

GroupedView::Shown LoansView::gather() {
  today_ = dateIn(desktop_.todayText(), desktop_.shortDateForm());
  borrowers_ = loans_->byBorrower();
  Shown shown = {.line = {}, .sizes = {}, .isEmpty = borrowers_.empty()};
  std::size_t items = 0;
  int overdue = 0;
  for (const BorrowerLoans& borrower : borrowers_) {
    shown.sizes.push_back(static_cast<int>(borrower.loans.size()));
    items += borrower.loans.size();
    for (const Loan& loan : borrower.loans)
      if (isOverdue(loan)) ++overdue;
  }
  if (items > 0) shown.line = countOfItems(items) + QStringLiteral(" on loan");
  if (overdue > 0) shown.line += QStringLiteral(", %1 overdue").arg(overdue);
  return shown;
}

const BorrowerLoans& LoansView::borrowerAt(const GroupedCell& cell) const {
  return borrowers_.at(static_cast<std::size_t>(cell.group));
}

const Loan& LoansView::loanAt(const GroupedCell& cell) const {
  return borrowerAt(cell).loans.at(static_cast<std::size_t>(cell.row));
}

bool LoansView::isOverdue(const Loan& loan) const { return today_ && loan.isOverdue(*today_); }

QString LoansView::textOf(const GroupedCell& cell) const {
  if (cell.isHeading()) {
    const BorrowerLoans& borrower = borrowerAt(cell);
    const QString name =
        borrower.name.empty() ? QStringLiteral("(no name)") : fromRecordText(borrower.name);
    return name + QStringLiteral(" (") + countOfItems(borrower.loans.size()) + QLatin1Char(')');
  }
  const Loan& loan = loanAt(cell);
  switch (static_cast<LoanColumn>(cell.column)) {
    case kArtist:
      return fromRecordText(loan.artist);
    case kAlbum:
      return fromRecordText(loan.album);
    case kSince:
      return fromRecordText(loan.since);
    case kDue:
      return fromRecordText(loan.due) + (isOverdue(loan) ? QStringLiteral(" overdue") : QString());
    case kBooklet:
      return loan.withBooklet ? QStringLiteral("Yes") : QString();
  }
  return {};
}

QVariant LoansView::moreOf(const GroupedCell& cell, int role) const {
  if (role == Qt::ForegroundRole && !cell.isHeading() && isOverdue(loanAt(cell)))
    return overdueColor(palette());
  return {};
}

std::string LoansView::idOf(const GroupedCell& cell) const {
  return cell.isHeading() ? borrowerAt(cell).name : std::to_string(loanAt(cell).item);
}

int LoansView::itemOf(const GroupedCell& cell) const {
  return cell.isHeading() ? 0 : loanAt(cell).item;
}

void LoansView::choose(const GroupedCell& cell) { owner_.show(itemOf(cell)); }

}  // namespace quillbox
