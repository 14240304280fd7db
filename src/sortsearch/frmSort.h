#pragma once

#include <functional>
#include <vector>

#include "forms/form.h"
#include "records/kinds.h"

class QCheckBox;
class QPushButton;

namespace quillbox {

/// The sort form of an editor: a box for each key, and a button that sorts. It is hidden, never
/// unloaded, so the boxes keep their values.
class frmSort : public Form {
 public:
  /// What the form needs from its editor.
  struct Owner {
    /// Shows the editor, now that the items have moved and there are `count`.
    std::function<void(std::int16_t count)> sorted;
    std::function<void()> leave;  ///< shows the editor unchanged
  };

  frmSort(Program& program, const CollectionKind& kind, Owner owner);

  /// Shows the form instead of its editor.
  void open(Form& editor);

  // The begin button's handler, under its names on the forms.
  void cmdBeginSort_Click();
  static constexpr auto cmbBeginSort_Click = &frmSort::cmdBeginSort_Click;
  static constexpr auto cmdSort_Click = &frmSort::cmdBeginSort_Click;

 protected:
  void Form_Unload() override { owner_.leave(); }

 private:
  const CollectionKind& kind_;
  Owner owner_;
  std::vector<QCheckBox*> boxes_;  // one for each key that has a caption
  QPushButton* begin_;
};

}  // namespace quillbox
