#pragma once

#include <QComboBox>

namespace quillbox {

/// A drop-down list whose accessible name is its caption (the toolkit's own has the entry it shows)
/// and whose accessible description is its entry. The wheel selects an entry only while the list
/// has the focus; otherwise it scrolls the page.
class DropDown : public QComboBox {
 public:
  explicit DropDown(QWidget* parent = nullptr);

 protected:
  void wheelEvent(QWheelEvent* event) override;
};

}  // namespace quillbox
