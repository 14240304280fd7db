#pragma once

#include <string>
#include <string_view>

namespace quillbox {

/// Who a CSV file is written for.
enum class CsvFor {
  programs,     ///< RFC 4180, each text as it is
  spreadsheets  ///< texts that a spreadsheet would take for a formula have an apostrophe before
                ///< them
};

/// Adds a field, in quotes where it needs them. For spreadsheets, too, numbers stay numbers: only
/// texts are guarded, by whoever calls.
void appendCsvField(std::string& line, std::string_view text);

/// Writes a stored text, padding and all, as that field, to a place that has room for its width and
/// two quotes. Returns the end of the field; nullptr for a text that asks for more care: for
/// anything beyond ASCII, control characters (NULs of the padding, too) and quotes.
char* writePlainCsvField(char* to, std::string_view stored);

/// True of a text that gets an apostrophe for spreadsheets: it begins with =, +, -, @, a tab or a
/// line end, or with apostrophes before one of them.
bool needsGuard(std::string_view text);

/// The text without the apostrophe that guards it; any other text as it is.
std::string_view withoutGuard(std::string_view text);

}  // namespace quillbox
