#include "overview/loans.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <utility>

#include "overview/sort_by_key.h"
#include "records/music_record.h"
#include "text/date_text.h"
#include "text/folding.h"
#include "text/padding.h"

namespace quillbox {
namespace {

std::string text(const Field* field, std::span<const std::byte> record) {
  return std::string(withoutBlanksAround(upToNul(textOf(*field, record))));
}

bool isTicked(const Field* field, std::span<const std::byte> record) {
  return wholeOf(*field, record) != 0;
}

}  // namespace

bool Loan::isOverdue(double today) const {
  return day.has_value() && std::floor(*day) < std::floor(today);
}

bool Loans::hasLoans(const CollectionKind& kind) { return kind.editor == EditorForm::music; }

Loans::Loans(const CollectionKind& kind, std::string dateForm)
    : kind_(kind), dateForm_(std::move(dateForm)) {}

void Loans::take(int item, std::span<const std::byte> record) {
  loans_.erase(item);
  if (!hasLoans(kind_) || isDeleted(kind_, record)) return;
  if (!isTicked(musicField("CurrLoaned"), record)) return;
  Loan loan{.item = item,
            .artist = text(musicField("Artist"), record),
            .album = text(musicField("Album"), record),
            .borrower = text(musicField("Borrower"), record),
            .since = text(musicField("DateLoaned"), record),
            .due = text(musicField("DueDate"), record)};
  loan.day = dateIn(loan.due, dateForm_);
  // Without a booklet its box holds only what was left there.
  loan.withBooklet =
      isTicked(musicField("HasBook"), record) && isTicked(musicField("BookLoaned"), record);
  loans_.emplace(item, std::move(loan));
}

void Loans::cutTo(int count) { loans_.erase(loans_.upper_bound(count), loans_.end()); }

std::vector<Loan> Loans::all() const {
  std::vector<Loan> all;
  for (const auto& [item, loan] : loans_) all.push_back(loan);
  return all;
}

std::vector<BorrowerLoans> Loans::byBorrower() const {
  std::map<std::string, BorrowerLoans> borrowers;
  for (const auto& [item, loan] : loans_) {
    BorrowerLoans& borrower = borrowers[folded(loan.borrower)];
    if (borrower.loans.empty()) borrower.name = loan.borrower;
    borrower.loans.push_back(loan);
  }
  std::vector<BorrowerLoans> all;
  all.reserve(borrowers.size());
  for (auto& [name, borrower] : borrowers) all.push_back(std::move(borrower));
  sortByKey(all, [](const BorrowerLoans& borrower) {
    return std::pair(borrower.name.empty(), naturalKey(borrower.name));
  });
  for (BorrowerLoans& borrower : all)
    std::ranges::stable_sort(borrower.loans, {}, [](const Loan& loan) {
      return loan.day.value_or(std::numeric_limits<double>::infinity());
    });
  return all;
}

}  // namespace quillbox
