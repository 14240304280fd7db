#pragma once

#include <map>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "records/kinds.h"

namespace quillbox {

/// An item on loan: its box is ticked. Texts are Windows-1252 without padding.
struct Loan {
  int item;
  std::string artist;
  std::string album;
  std::string borrower;
  std::string since;               ///< as typed
  std::string due;                 ///< as typed
  std::optional<double> day = {};  ///< the due date, if the text is one
  bool withBooklet = false;        ///< it has a booklet, which is also on loan

  /// True when due before that day, in days since 30 December 1899; on the day itself it is not
  /// overdue. A loan without a valid due date never is.
  bool isOverdue(double today) const;
};

/// The loans of one person.
struct BorrowerLoans {
  std::string name;         ///< as in the first of the items; may be empty
  std::vector<Loan> loans;  ///< by due date; those without one last
};

/// Who has borrowed what. Deleted items are ignored; only music has loans.
class Loans {
 public:
  static bool hasLoans(const CollectionKind& kind);

  Loans(const CollectionKind& kind, std::string dateForm);

  /// Adds an item, or replaces it.
  void take(int item, std::span<const std::byte> record);

  /// Keeps only the items up to `count`.
  void cutTo(int count);

  /// All loans, in item order.
  std::vector<Loan> all() const;

  /// By borrower, in natural order, ignoring case and accents; an empty name comes last.
  std::vector<BorrowerLoans> byBorrower() const;

 private:
  const CollectionKind& kind_;
  std::string dateForm_;
  std::map<int, Loan> loans_;
};

}  // namespace quillbox
