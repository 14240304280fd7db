#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "forms/form.h"
#include "forms/notice_line.h"

class QLabel;
class QPushButton;
class QVBoxLayout;

namespace quillbox {

class RecentList;

/// The start screen: create a collection, open one, or exit. Below the program's name are the
/// notices and the collections opened last, if any.
class frmBegin2 : public Form {
 public:
  explicit frmBegin2(Program& program);

  /// The current notices; set by the start-up module.
  std::function<std::vector<Notice>()> notices;

  /// Before it is shown, it checks which collections exist.
  void setVisible(bool visible) override;

 protected:
  void Form_Unload() override;
  void changeEvent(QEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;

 private:
  void makeToolbar();
  void makeMenus();
  void makePage();
  QWidget* makeBrand();
  QWidget* makeRecents();

  void refresh();
  bool showNotices(const std::vector<Notice>& shown);
  bool showRecents();
  void layOutBrand(bool isAlone);
  void fitWindow();
  void showBrandIfItFits();

  void openRecent(const std::string& path);
  void takeOffList(const std::string& path);

  /// The toolbar's buttons are identified by their keys: "N", "O" and "X".
  void tbrBegin_ButtonClick(std::string_view key);

  void AboutBegin_Click();

  QLabel* picture_ = nullptr;
  QLabel* name_ = nullptr;
  QLabel* line_ = nullptr;
  QWidget* brand_ = nullptr;
  QWidget* page_ = nullptr;
  QWidget* middle_ = nullptr;  // of the page: everything on it
  QVBoxLayout* column_ = nullptr;
  std::vector<NoticeLine*> noticeLines_;  // created when there is something to report
  std::vector<std::string> said_;         // the texts on them
  QWidget* recents_ = nullptr;  // the list with its caption and button; created when needed
  RecentList* list_ = nullptr;
  QPushButton* takeOff_ = nullptr;
  QWidget* lastTool_ = nullptr;  // where Tab leaves for the notices
  bool isAlone_ = true;          // nothing is below the brand
  bool isFitted_ = false;
};

}  // namespace quillbox
