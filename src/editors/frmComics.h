#pragma once

#include "editors/frmFamily.h"

namespace quillbox {

/// The editor of comic collections.
class frmComics : public frmFamily {
 public:
  frmComics(Program& program, PrintEngine& printEngine);
};

}  // namespace quillbox
