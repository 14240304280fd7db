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

/// The start screen: make a collection, open one, or leave. Below the program's name stand what
/// there is to say and the collections that were opened last, if any.
class frmBegin2 : public Form {
 public:
  explicit frmBegin2(Program& program);

  /// What there is to say by now; set by the start-up module.
  std::function<std::vector<Notice>()> notices;

  /// Shown, it has looked which collections are there.
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

  /// The toolbar's buttons are told apart by their keys: "N", "O" and "X".
  void tbrBegin_ButtonClick(std::string_view key);

  void AboutBegin_Click();

  QLabel* picture_ = nullptr;
  QLabel* name_ = nullptr;
  QLabel* line_ = nullptr;
  QWidget* brand_ = nullptr;
  QWidget* page_ = nullptr;
  QWidget* middle_ = nullptr;  // of the page: all there is
  QVBoxLayout* column_ = nullptr;
  std::vector<NoticeLine*> noticeLines_;  // made when there is something to say
  std::vector<std::string> said_;         // on them
  QWidget* recents_ = nullptr;  // the list with its caption and button; made when it is needed
  RecentList* list_ = nullptr;
  QPushButton* takeOff_ = nullptr;
  QWidget* lastTool_ = nullptr;  // what the Tab key leads on from to the notices
  bool isAlone_ = true;          // nothing stands below the brand
  bool isFitted_ = false;
};

}  // namespace quillbox
