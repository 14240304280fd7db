#pragma once

#include <string>

namespace quillbox {

/// Gives the open file `descriptor`, which only its owner can read, the permissions of the file
/// `like`, and its owner, group and extended attributes where the system permits it. Where the
/// owner, the group or the access list cannot be taken over, the permissions are narrower: nobody
/// can read the file who cannot read `like`. Returns 0, or the error when the system supports
/// permissions and failed to set them.
int takeAccessOf(const std::string& like, int descriptor);

}  // namespace quillbox
