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

/// The number of runs of each side of each case.
inline constexpr int kStepRepetitions = 41;

/// Times Next within this process. The peer reads the same records of the same file, each with only
/// one opening, reading and closing.
StepTimes timeSteps(const std::string& fullCollection, const std::string& deletedCollection);

}  // namespace quillbox::bench
