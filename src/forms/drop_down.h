#pragma once

#include <QComboBox>

namespace quillbox {

/// A drop-down list that assistive technology knows by its caption (the toolkit's own goes by the
/// entry it shows) and whose entry it reads as the description. The wheel chooses an entry only
/// while the list has the focus; over any other list it scrolls what the list stands on.
class DropDown : public QComboBox {
 public:
  explicit DropDown(QWidget* parent = nullptr);

 protected:
  void wheelEvent(QWheelEvent* event) override;
};

}  // namespace quillbox
