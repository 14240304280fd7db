#pragma once

#include <filesystem>
#include <string>

#include "steps.h"

namespace quillbox::bench {

struct StartFigures {
  Pair time;               ///< milliseconds from start to end of the process
  Pair memory;             ///< MiB resident at the peak
  double timeWithBox = 0;  ///< of Quillbox with the start-up box shown
  double memoryWithBox = 0;
  double timeOfPlainForm = 0;  ///< ms, a window with as many plain controls
};

/// Starts that are not counted.
inline constexpr int kWarmUps = 2;

/// Runs the two start programs, which are in the folder `programs`, in turn: each opens a window,
/// paints it and exits. `runs` of each are counted.
StartFigures timeStarts(const std::filesystem::path& programs,
                        const std::filesystem::path& workFolder, const std::string& collection,
                        int runs);

}  // namespace quillbox::bench
