#pragma once

#include <QImage>
#include <QString>
#include <QThreadPool>
#include <functional>
#include <optional>
#include <string>

#include "forms/program.h"
#include "panel/panel_view.h"
#include "records/collection_store.h"

class QLabel;
class QPushButton;

namespace quillbox {

class ElidedLabel;

/// The result of examining a media file.
struct FileLook {
  QImage picture;  ///< null if the file is no picture that can be shown
  QString says;    ///< a description of the file
  bool isThere = false;
};

/// Examines a file: a picture no larger than `room`, or the length of a sound. Any file is
/// harmless, however large or damaged.
FileLook lookAtFile(const QString& path, QSize room);

/// The file of the item on the form: its picture, or the length of its sound. Files are read in
/// another thread, so a large one or a slow disk delays nothing.
class PreviewView : public PanelView {
 public:
  PreviewView(Program& program, const CollectionKind& kind);
  ~PreviewView() override;

  void start() override;
  void take(int /*item*/, std::span<const std::byte> /*record*/) override {}
  void cutTo(int /*count*/) override {}
  void showTaken() override;
  void mark(int item) override;

 protected:
  void showEvent(QShowEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;

 private:
  void look();
  void showLook(const FileLook& look);
  void fit();
  void openFile();

  Program& program_;
  CollectionStore store_;
  int item_ = 0;
  bool isLookedAt_ = false;
  std::string path_;  // empty: the item has no path
  int looks_ = 0;     // only the last result is shown
  QImage picture_;
  QLabel* lblPicture_;
  ElidedLabel* lblFile_;
  ElidedLabel* lblSays_;
  QPushButton* open_;
  QThreadPool reading_;
};

}  // namespace quillbox
