#pragma once

#include <string>
#include <utility>
#include <vector>

#include "platform/board.h"

namespace quillbox::test {

/// A board that records its calls.
class RecordingBoard : public Board {
 public:
  void open(const std::string& caption) override { told.push_back("open: " + caption); }
  void setBoardCaption(const std::string& caption) override {
    told.push_back("caption: " + caption);
  }
  void clear() override { told.emplace_back("clear"); }
  void print(const std::string& line) override { told.push_back("line: " + line); }
  void progress(int done, int total) override { steps.emplace_back(done, total); }
  void close() override { told.emplace_back("close"); }

  std::vector<std::string> told;
  std::vector<std::pair<int, int>> steps;
};

}  // namespace quillbox::test
