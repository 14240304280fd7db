#pragma once

#include <map>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "records/kinds.h"

namespace quillbox {

/// An item on loan: its box is ticked. Texts are Windows-1252, without the blanks that pad them.
struct Loan {
  int item;
  std::string artist;
  std::string album;
  std::string borrower;
  std::string since;               ///< as typed
  std::string due;                 ///< as typed
  std::optional<double> day = {};  ///< the due date, where the text is one
  bool withBooklet = false;        ///< it has one, and that is on loan, too

  /// Due before that day, in days since 30 December 1899; on the day itself it is not. A loan whose
  /// due date is none never is.
  bool isOverdue(double today) const;
};

/// What one person has.
struct BorrowerLoans {
  std::string name;         ///< as in the first of the items; may be empty
  std::vector<Loan> loans;  ///< what is due first comes first, what has no due date last
};

/// Who has what. Deleted items are not looked at; only music has loans.
class Loans {
 public:
  static bool hasLoans(const CollectionKind& kind);

  Loans(const CollectionKind& kind, std::string dateForm);

  /// Takes an item, again if it was taken before.
  void take(int item, std::span<const std::byte> record);

  /// There are only so many items now.
  void cutTo(int count);

  /// All loans, in the order of their items.
  std::vector<Loan> all() const;

  /// By borrower, in natural order, capitals and accents aside; nobody named comes last.
  std::vector<BorrowerLoans> byBorrower() const;

 private:
  const CollectionKind& kind_;
  std::string dateForm_;
  std::map<int, Loan> loans_;
};

}  // namespace quillbox
