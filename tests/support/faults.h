#pragma once

#include <vector>

#include "platform/run_time_error.h"

/// What can go wrong with a file.
namespace quillbox::test {

enum class FileOperation {
  open,
  make,
  read,
  write,
  flush,
  close,
  exists,
  linkTarget,
  remove,
  rename,
  list,
  resolve
};

/// The errors that an operation can have.
inline std::vector<ErrorNumber> errorsOf(FileOperation operation) {
  using enum ErrorNumber;
  switch (operation) {
    case FileOperation::open:
    case FileOperation::make:
      return {deviceIo, diskFull, permissionDenied, pathNotFound};
    case FileOperation::read:
      return {deviceIo};
    case FileOperation::write:
    case FileOperation::flush:
    case FileOperation::close:
      return {deviceIo, diskFull};
    case FileOperation::exists:
    case FileOperation::linkTarget:
    case FileOperation::remove:
      return {deviceIo, permissionDenied};
    case FileOperation::rename:
      return {deviceIo, permissionDenied, differentDrive};
    case FileOperation::list:
    case FileOperation::resolve:
      return {deviceIo, permissionDenied, pathNotFound};
  }
  return {};
}

/// How an operation fails.
struct Fault {
  ErrorNumber error;
  bool isShort = false;  ///< a write writes half of its bytes first
  bool lasts = false;    ///< so does every later operation that can have the error
};

inline std::vector<Fault> faultsOf(FileOperation operation) {
  std::vector<Fault> faults;
  for (const ErrorNumber error : errorsOf(operation))
    for (const bool lasts : {false, true}) {
      faults.push_back({error, false, lasts});
      if (operation == FileOperation::write) faults.push_back({error, true, lasts});
    }
  return faults;
}

}  // namespace quillbox::test
