#pragma once

#include <string_view>

#include "forms/form.h"

namespace quillbox {

/// The start screen: make a collection, open one, or leave.
class frmBegin2 : public Form {
 public:
  explicit frmBegin2(Program& program);

 protected:
  void Form_Unload() override;

 private:
  void makeToolbar();
  void makeMenus();
  void makePage();

  /// The toolbar's buttons are told apart by their keys: "N", "O" and "X".
  void tbrBegin_ButtonClick(std::string_view key);

  void AboutBegin_Click();
};

}  // namespace quillbox
