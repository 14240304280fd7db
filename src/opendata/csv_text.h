#pragma once

#include <string>
#include <string_view>

namespace quillbox {

/// The reader a CSV file is written for.
enum class CsvFor {
  programs,     ///< RFC 4180, each text as it is
  spreadsheets  ///< texts that a spreadsheet would take for a formula get an apostrophe
                ///< at the front
};

/// Adds a field, in quotes if it needs them. For spreadsheets, too, numbers stay numbers: the
/// caller guards only texts.
void appendCsvField(std::string& line, std::string_view text);

/// Writes a stored, padded text as that field, to a buffer with room for its width and two quotes.
/// Returns the end of the field; nullptr for a text that needs more care: with anything beyond
/// ASCII, control characters (even NULs of the padding) or quotes.
char* writePlainCsvField(char* to, std::string_view stored);

/// True for a text that gets an apostrophe for spreadsheets: it begins with =, +, -, @, a tab or a
/// line end, or with apostrophes before one of them.
bool needsGuard(std::string_view text);

/// The text without its guarding apostrophe; any other text unchanged.
std::string_view withoutGuard(std::string_view text);

}  // namespace quillbox
