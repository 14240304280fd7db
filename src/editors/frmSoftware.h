#pragma once

#include "editors/frmFamily.h"

namespace quillbox {

/// The editor of software collections.
class frmSoftware : public frmFamily {
 public:
  frmSoftware(Program& program, PrintEngine& printEngine);
};

}  // namespace quillbox
