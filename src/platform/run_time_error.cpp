#include "platform/run_time_error.h"

#include <cerrno>
#include <utility>

namespace quillbox {
namespace {

ErrorNumber numberFromErrno(int error) {
  switch (error) {
    case ENOENT:
      return ErrorNumber::fileNotFound;
    case ENOTDIR:
      return ErrorNumber::pathNotFound;
    case EEXIST:
    case ENOTEMPTY:
      return ErrorNumber::fileAlreadyExists;
    case EACCES:
    case EPERM:
    case EROFS:
      return ErrorNumber::permissionDenied;
    case ENOSPC:
#ifdef EDQUOT  // not on every platform
    case EDQUOT:
#endif
    case EFBIG:
      return ErrorNumber::diskFull;
    case EIO:
      return ErrorNumber::deviceIo;
    default:
      return ErrorNumber::pathFileAccess;
  }
}

}  // namespace

const char* standardText(ErrorNumber number) {
  switch (number) {
    case ErrorNumber::overflow:
      return "Overflow";
    case ErrorNumber::typeMismatch:
      return "Type mismatch";
    case ErrorNumber::fileNotFound:
      return "File not found";
    case ErrorNumber::fileAlreadyOpen:
      return "File already open";
    case ErrorNumber::deviceIo:
      return "Device I/O error";
    case ErrorNumber::fileAlreadyExists:
      return "File already exists";
    case ErrorNumber::diskFull:
      return "Disk full";
    case ErrorNumber::badRecordNumber:
      return "Bad record number";
    case ErrorNumber::permissionDenied:
      return "Permission denied";
    case ErrorNumber::differentDrive:
      return "Can't rename with different drive";
    case ErrorNumber::pathFileAccess:
      return "Path/File access error";
    case ErrorNumber::pathNotFound:
      break;
  }
  return "Path not found";
}

RunTimeError::RunTimeError(ErrorNumber number, std::string file)
    : number_(number), file_(std::move(file)), message_("Run-time error '") {
  message_.append(std::to_string(static_cast<int>(number))).append("':\n\n");
  message_.append(standardText(number));
  if (!file_.empty()) message_.append("\n").append(file_);
}

void RunTimeError::addNote(std::string_view note) {
  message_.append("\n\n").append(note);
  notes_.append(notes_.empty() ? "" : "\n").append(note);
}

RunTimeError errorFromErrno(int error, const std::string& file) {
  return RunTimeError(numberFromErrno(error), file);
}

}  // namespace quillbox
