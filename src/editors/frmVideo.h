#pragma once

#include "editors/frmFamily.h"

namespace quillbox {

/// The editor of video collections.
class frmVideo : public frmFamily {
 public:
  frmVideo(Program& program, PrintEngine& printEngine);
};

}  // namespace quillbox
