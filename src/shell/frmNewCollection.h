#pragma once

#include <vector>

#include "forms/form.h"

class QLineEdit;
class QRadioButton;
class QVBoxLayout;

namespace quillbox {

class ElidedLabel;
struct CollectionKind;

/// The new-collection dialog: a name, a kind, and Go.
class frmNewCollection : public Form {
 public:
  explicit frmNewCollection(Program& program);

  /// Lists the kinds and shows the dialog.
  void showWithOptions();

  /// Opens the editor of a kind on a new collection at that path; set by the start-up module.
  std::function<void(const CollectionKind&, const std::string& path)> openEditor;

 protected:
  void Form_Unload() override;

 private:
  void drawoptions();
  void undrawopt();
  void cmdNew_Click();
  void showPath();
  std::string pathOf(const std::string& name, const CollectionKind* kind);
  const CollectionKind* selectedKind() const;

  QLineEdit* txtColName_;
  ElidedLabel* lblPath_;  // what Go will create, or what is missing
  QVBoxLayout* options_;
  std::vector<QRadioButton*> optQBX_;  // one for each kind, in the table's order
};

}  // namespace quillbox
