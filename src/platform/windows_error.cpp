#define WIN32_LEAN_AND_MEAN
#include "platform/windows_error.h"

#include <windows.h>

namespace quillbox {
namespace {

constexpr DWORD kQuotaExceeded = 1295;  // ERROR_DISK_QUOTA_EXCEEDED, which some headers lack

ErrorNumber numberFromWindows(DWORD error) {
  switch (error) {
    case ERROR_FILE_NOT_FOUND:
      return ErrorNumber::fileNotFound;
    case ERROR_PATH_NOT_FOUND:
    case ERROR_BAD_PATHNAME:
    case ERROR_DIRECTORY:
    case ERROR_INVALID_DRIVE:
    case ERROR_BAD_NETPATH:
    case ERROR_BAD_NET_NAME:
      return ErrorNumber::pathNotFound;
    case ERROR_FILE_EXISTS:
    case ERROR_ALREADY_EXISTS:
      return ErrorNumber::fileAlreadyExists;
    case ERROR_ACCESS_DENIED:
    case ERROR_NETWORK_ACCESS_DENIED:
    case ERROR_SHARING_VIOLATION:
    case ERROR_LOCK_VIOLATION:
    case ERROR_USER_MAPPED_FILE:
    case ERROR_WRITE_PROTECT:
      return ErrorNumber::permissionDenied;
    case ERROR_DISK_FULL:
    case ERROR_HANDLE_DISK_FULL:
    case kQuotaExceeded:
    case ERROR_FILE_TOO_LARGE:
      return ErrorNumber::diskFull;
    case ERROR_IO_DEVICE:
    case ERROR_GEN_FAILURE:
    case ERROR_NOT_READY:
    case ERROR_CRC:
    case ERROR_SEEK:
    case ERROR_SECTOR_NOT_FOUND:
    case ERROR_READ_FAULT:
    case ERROR_WRITE_FAULT:
    case ERROR_DEV_NOT_EXIST:
    case ERROR_NETNAME_DELETED:
      return ErrorNumber::deviceIo;
    default:
      return ErrorNumber::pathFileAccess;
  }
}

}  // namespace

RunTimeError errorFromWindows(unsigned long error, const std::string& file) {
  return RunTimeError(numberFromWindows(error), file);
}

}  // namespace quillbox
