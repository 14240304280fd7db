#pragma once

#include <initializer_list>
#include <string>
#include <string_view>

#include "records/header_record.h"
#include "records/music_record.h"
#include "text/padding.h"

namespace quillbox::test {

/// A blank album by that artist: blanks in texts, zeros elsewhere.
MusicRecord album(std::string_view artist, std::string_view title = "");

/// The bytes of a music collection of the current file type, header record included.
std::string musicFile(std::initializer_list<MusicRecord> items);

/// The bytes of a collection with another header. `recordLength` is that of every record.
std::string musicFile(int count, int fileType, std::initializer_list<MusicRecord> items,
                      std::size_t recordLength = sizeof(MusicRecord));

/// The header and item `n` (from 1) of a music file's bytes, which must hold them whole.
HeaderRecord headerOf(std::string_view file);
MusicRecord itemOf(std::string_view file, int n);

/// A text field without its padding.
template <std::size_t N>
std::string text(const FixedText<N>& field) {
  return std::string(withoutTrailingBlanks(field.view()));
}

}  // namespace quillbox::test
