#pragma once

#include "editors/frmFamily.h"

namespace quillbox {

/// The editor of book collections.
class frmBooks : public frmFamily {
 public:
  frmBooks(Program& program, PrintEngine& printEngine);
};

}  // namespace quillbox
