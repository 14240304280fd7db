#pragma once

#include <functional>
#include <span>
#include <string>
#include <vector>

#include "cli/console.h"
#include "opendata/values.h"
#include "records/record_texts.h"

namespace quillbox {

/// A collection read by a command: its file, the user's own media types, its values.
class Opened {
 public:
  Opened(Console& console, const std::string& path);

  const CollectionFile& collection() const { return collection_; }
  const CollectionKind& kind() const { return *collection_.kind; }
  const Values& values() const { return values_; }

  /// The words of choices, and the form in which dates are shown and typed.
  RecordTexts texts(std::string dateForm) const;

  /// Passes on all items, as current records of the kind. Items missing from a file that is too
  /// short are left out.
  void readItems(const std::function<void(int item, std::span<const std::byte> record)>& use) const;

 private:
  Console& console_;
  CollectionFile collection_;
  std::vector<std::string> mediaTypes_;
  Values values_;
};

inline constexpr const char* kIsoDates = "yyyy-MM-dd";

/// The short date form of the user's language, in the notation of date_text.h.
std::string shortDateForm();

/// Today, in days since 30 December 1899.
double today();

}  // namespace quillbox
