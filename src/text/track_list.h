#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace quillbox {

/// The titles in a list of several lines (UTF-8), such as a copied track list, in order. Blank
/// lines and blanks around a title are dropped.
///
/// Numbers before titles ("1. ", "01 - ", "3) ") and lengths after them ("4:05", "(3:20)") are
/// removed if most lines have one, so that titles such as "99 Luftballons", "7 Seconds", "1999" or
/// "John 3:16" stay whole: the numbers must rise from line to line, or start at 1 again, and
/// numbers followed only by a blank ("1 So What") must count every line. No title is ever left
/// empty, and a text of one line is taken as it is.
std::vector<std::string> trackTitles(std::string_view text);

/// Whether a text has more than one line; blank lines and a line break at the end count.
bool hasLineBreaks(std::string_view text);

}  // namespace quillbox
