#pragma once

#include <array>
#include <string_view>

/// The drop-down lists. Records store the 0-based place of an entry, so the order is part of the
/// file format.
namespace quillbox::choices {

inline constexpr auto musicGenre = std::to_array<std::string_view>(
    {"Alternative", "Big Band/Swing", "Cast Recordings", "Classic Rock", "Classical", "Country",
     "Folk", "Hard Rock", "Heavy Metal", "Oldies", "Parody", "Popular/Top 40", "Rap", "Rock",
     "Soundtrack"});

/// The list before the user's own file replaces its tail.
inline constexpr auto musicMediaType = std::to_array<std::string_view>(
    {"Compact Disc", "Cassette Tape", "Digital Audio Tape", "Record Album", "8-Track", "4-Track",
     "Reel To Reel Tape", "Cart"});

}  // namespace quillbox::choices
