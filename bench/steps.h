#pragma once

#include <string>

namespace quillbox::bench {

/// Two medians, side by side.
struct Pair {
  double quillbox = 0;
  double peer = 0;
};

struct StepTimes {
  Pair step;  ///< nanoseconds for one step from an item to the next
  Pair skip;  ///< nanoseconds for one step over all deleted items
};

/// How often each side of each case is run.
inline constexpr int kStepRepetitions = 41;

/// Times Next inside this process. The peer reads the same records of the same file, each with
/// nothing but one opening, one reading and one closing.
StepTimes timeSteps(const std::string& fullCollection, const std::string& deletedCollection);

}  // namespace quillbox::bench
