#pragma once

#include <QElapsedTimer>
#include <QTimer>
#include <array>
#include <cstddef>
#include <string>

#include "forms/form.h"
#include "platform/board.h"

class QLabel;
class QProgressBar;

namespace quillbox {

/// The progress board as a form. It is loaded when it is first shown or given a caption.
class frmRecDisp : public Form, public Board {
 public:
  explicit frmRecDisp(Program& program);

  void open(const std::string& caption) override;
  void setBoardCaption(const std::string& caption) override;
  void clear() override;
  void print(const std::string& line) override;
  void progress(int done, int total) override;
  void tell(const std::string& status) override;
  void close() override;

  void setVisible(bool visible) override;

 protected:
  void Form_Unload() override { hide(); }

 private:
  void load();
  void Form_Load();
  void showState();
  void repaintNow();
  void repaintIfDue();

  QLabel* text_;
  QProgressBar* bar_;
  std::array<std::string, 12> lines_;  // the last lines, in a ring
  bool isLoaded_ = false;
  std::size_t printed_ = 0;  // since the board was last cleared
  int done_ = 0;
  int total_ = 0;
  QElapsedTimer sinceRepaint_;
  QTimer last_;  // shows the last line as soon as the work allows it
};

}  // namespace quillbox
