#pragma once

#include <optional>
#include <string>
#include <vector>

#include "forms/notice_line.h"
#include "forms/program.h"
#include "records/kinds.h"
#include "records/rescue.h"

namespace quillbox {

/// What the start screen says unasked: which file the command line named in vain, and which known
/// collections lie under their backup's name alone. Nothing of it must be answered.
class StartNotices {
 public:
  explicit StartNotices(Program& program) : program_(program) {}

  /// The command line named that file, and it was not opened.
  void notOpened(const std::string& path);

  /// A file was asked for that is not there. From now on its collection is known.
  void missing(const std::string& path);

  /// Another collection was opened: what was said of a file is over.
  void opened() { about_.reset(); }

  /// What to say by now, most important first.
  std::vector<Notice> all();

 private:
  std::vector<LostCollection> lost();
  Notice offerOf(const LostCollection& lost, const char* button);

  Program& program_;
  std::optional<Notice> about_;      // a single file
  std::vector<std::string> missed_;  // full paths of collections that were asked for in vain
};

}  // namespace quillbox
