#pragma once

#include <optional>
#include <string>
#include <vector>

#include "forms/notice_line.h"
#include "forms/program.h"
#include "records/kinds.h"
#include "records/rescue.h"

namespace quillbox {

/// The start screen's notices: a file on the command line that was not found, and known collections
/// that exist only under their backup's name. None of them requires an answer.
class StartNotices {
 public:
  explicit StartNotices(Program& program) : program_(program) {}

  /// That file was on the command line and was not opened.
  void notOpened(const std::string& path);

  /// A file that does not exist was requested. Its collection counts as known from now on.
  void missing(const std::string& path);

  /// Another collection was opened: the notice about a file is obsolete.
  void opened() { about_.reset(); }

  /// The current notices, the most important first.
  std::vector<Notice> all();

 private:
  std::vector<LostCollection> lost();
  Notice offerOf(const LostCollection& lost, const char* button);

  Program& program_;
  std::optional<Notice> about_;      // a single file
  std::vector<std::string> missed_;  // full paths of collections that were requested and not found
};

}  // namespace quillbox
