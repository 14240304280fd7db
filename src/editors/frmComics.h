#pragma once

#include "editors/frmFamily.h"

namespace quillbox {

/// The editor of comic collections.
class frmComics : public frmFamily {
 public:
  explicit frmComics(Program& program);
};

}  // namespace quillbox
