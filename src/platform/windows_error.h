#pragma once

#include <string>

#include "platform/run_time_error.h"

namespace quillbox {

/// The run-time error for a failed call of Windows; `error` is the result of GetLastError().
RunTimeError errorFromWindows(unsigned long error, const std::string& file);

}  // namespace quillbox
