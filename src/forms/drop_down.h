#pragma once

#include <QComboBox>

namespace quillbox {

/// A drop-down list that assistive technology knows by its caption (the toolkit's own goes by the
/// entry it shows) and whose entry it reads as the description.
class DropDown : public QComboBox {
 public:
  explicit DropDown(QWidget* parent = nullptr);
};

}  // namespace quillbox
