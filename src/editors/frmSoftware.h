#pragma once

#include "editors/frmFamily.h"

namespace quillbox {

/// The editor of software collections.
class frmSoftware : public frmFamily {
 public:
  explicit frmSoftware(Program& program);
};

}  // namespace quillbox
