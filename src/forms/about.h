#pragma once

#include <string>
#include <string_view>

namespace quillbox {

inline constexpr std::string_view kCredits =
    "A catalogue for everything you collect, made by people who collect.";

/// The text of an About box: the program and its version, the line "<area> Area Version: V..." if
/// there is an area, the credits.
std::string aboutText(std::string_view area = {});

}  // namespace quillbox
