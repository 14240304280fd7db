#pragma once

#include <array>
#include <string_view>

/// The drop-down lists. Records store the 0-based index of an entry, so the order is part of the
/// file format.
namespace quillbox::choices {

inline constexpr auto musicGenre = std::to_array<std::string_view>(
    {"Alternative", "Big Band/Swing", "Cast Recordings", "Classic Rock", "Classical", "Country",
     "Folk", "Hard Rock", "Heavy Metal", "Oldies", "Parody", "Popular/Top 40", "Rap", "Rock",
     "Soundtrack"});

/// The list before the user's own file replaces its end.
inline constexpr auto musicMediaType = std::to_array<std::string_view>(
    {"Compact Disc", "Cassette Tape", "Digital Audio Tape", "Record Album", "8-Track", "4-Track",
     "Reel To Reel Tape", "Cart"});

inline constexpr auto videoMediaType = std::to_array<std::string_view>(
    {"VideoCassette", "LaserDisc", "32MM Film", "16MM Film", "Super 8MM Film", "8MM Film",
     "Video For Windows (AVI File)", "QuickTime (MOV Files)"});

inline constexpr auto softwareMediaType = std::to_array<std::string_view>(
    {"3.5\" Floppy Disk", "5.25\" Floppy Disk", "CD-ROM", "ZIP Disk", "WORM Disk"});

inline constexpr auto bookGenre = std::to_array<std::string_view>(
    {"Fantasy", "Horror", "Periodical", "Reference", "Romance", "Science Fiction"});

/// Spelled "Brail".
inline constexpr auto bookMediaType =
    std::to_array<std::string_view>({"Audio Books", "Brail", "Hardcover", "Paperback"});

}  // namespace quillbox::choices
