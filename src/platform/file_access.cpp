#include "platform/file_access.h"

#include <sys/stat.h>
#include <sys/xattr.h>
#include <unistd.h>

#include <cerrno>
#include <optional>
#include <string_view>

namespace quillbox {
namespace {

/// The attribute with an access list, for more users and groups than a file's mode covers.
constexpr const char* kAccessList = "system.posix_acl_access";

/// What `read` writes into a buffer, of any length; nothing when it fails.
template <typename Read>
std::optional<std::string> textOf(const Read& read) {
  std::string text;
  for (;;) {
    const auto needed = read(text.data(), std::size_t{0});
    if (needed < 0) return {};
    text.resize(static_cast<std::size_t>(needed));
    const auto length = read(text.data(), text.size());
    if (length >= 0) {
      text.resize(static_cast<std::size_t>(length));
      return text;
    }
    if (errno != ERANGE) return {};  // it has grown meanwhile
  }
}

std::optional<std::string> attributeOf(const std::string& file, const char* name) {
  return textOf(
      [&](char* into, std::size_t size) { return ::getxattr(file.c_str(), name, into, size); });
}

bool setAttribute(int descriptor, const char* name, const std::string& value) {
  return ::fsetxattr(descriptor, name, value.data(), value.size(), 0) == 0;
}

/// The error of a missing attribute, or of a file system without attributes.
bool meansNone(int error) { return error == ENODATA || error == ENOTSUP || error == ENOSYS; }

/// Copies the attributes; their names come one after another, each ended by a zero byte.
void takeAttributesOf(const std::string& like, int descriptor) {
  const auto names =
      textOf([&](char* into, std::size_t size) { return ::listxattr(like.c_str(), into, size); });
  if (!names) return;
  for (std::size_t at = 0; at < names->size(); at = names->find('\0', at) + 1) {
    const char* const name = names->c_str() + at;
    if (name == std::string_view(kAccessList)) continue;
    if (const auto value = attributeOf(like, name)) setAttribute(descriptor, name, *value);
  }
}

/// True when both have the same access list, or none; a new file may inherit one from its folder.
bool takesAccessListOf(const std::string& like, int descriptor, bool hasOwner) {
  const auto list = attributeOf(like, kAccessList);
  if (list) return hasOwner && setAttribute(descriptor, kAccessList, *list);
  return meansNone(errno) && (::fremovexattr(descriptor, kAccessList) == 0 || meansNone(errno));
}

/// The permissions of a file whose owner, and perhaps group, has changed: the former owner may now
/// be any other user, and so may the members of the former group.
mode_t withoutOwner(mode_t mode, bool hasGroup) {
  const mode_t owner = mode >> 6U & 07U;
  const mode_t group = mode >> 3U & owner;
  const mode_t others = mode & (hasGroup ? owner : group);
  return (owner << 6U) | ((hasGroup ? group : others) << 3U) | others;
}

}  // namespace

int takeAccessOf(const std::string& like, int descriptor) {
  struct stat status {};
  if (::stat(like.c_str(), &status) != 0) return errno;
  const bool hasOwner = ::fchown(descriptor, status.st_uid, status.st_gid) == 0;
  const bool hasGroup =
      hasOwner || ::fchown(descriptor, static_cast<uid_t>(-1), status.st_gid) == 0;
  takeAttributesOf(like, descriptor);
  mode_t mode = status.st_mode & (S_IRWXU | S_IRWXG | S_IRWXO);
  if (!takesAccessListOf(like, descriptor, hasOwner))
    mode &= S_IRWXU;
  else if (!hasOwner)
    mode = withoutOwner(mode, hasGroup);
  if (::fchmod(descriptor, mode) == 0) return 0;
  const bool knowsNoModes = errno == EPERM || errno == ENOTSUP || errno == ENOSYS;
  return knowsNoModes ? 0 : errno;
}

}  // namespace quillbox
