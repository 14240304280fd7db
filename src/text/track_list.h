#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace quillbox {

/// The titles of a list of several lines (UTF-8), such as a track list copied from somewhere, in
/// their order. Blank lines are skipped, and so are the blanks around a title.
///
/// Numbers before titles ("1. ", "01 - ", "3) ") and lengths behind them ("4:05", "(3:20)") are
/// left out where most lines have one, so that titles such as "99 Luftballons", "7 Seconds", "1999"
/// or "John 3:16" stay whole: numbers must rise from line to line, or begin at 1 again, and those
/// with nothing but a blank behind them ("1 So What") must count every line. No title is ever left
/// empty, and a text of one line is taken as it is.
std::vector<std::string> trackTitles(std::string_view text);

/// Whether a text has more than one line, blank ones and a line break at its end included.
bool hasLineBreaks(std::string_view text);

}  // namespace quillbox
