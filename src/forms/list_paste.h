#pragma once

#include <QObject>
#include <QString>
#include <cstddef>
#include <functional>
#include <vector>

class QContextMenuEvent;
class QDropEvent;
class QKeyEvent;
class QMouseEvent;

namespace quillbox {

class TextBox;

/// Pasting a text of several lines into one of the boxes of a list puts its titles (track_list.h)
/// into the empty boxes from that one on, by whatever way a text is pasted: keys, context menu,
/// middle button, dropping. A box that holds something is never overwritten, but for the one pasted
/// into when all its text is selected. One undo in that box takes all of it back. A text of one
/// line is pasted as ever, without its line break.
class ListPaste : public QObject {
 public:
  /// Told what became of a text that was pasted into a box; an empty text when it was taken back.
  using Say = std::function<void(TextBox& into, const QString& text)>;

  /// The boxes, in their order, must outlive this.
  ListPaste(std::vector<TextBox*> entries, Say say);

  /// The same for a box beside the list, which stays as it is: the entries are filled from `first`.
  void alsoIn(TextBox& box, std::size_t first);

  /// What was pasted can no longer be taken back: the boxes show something else.
  void forget() { last_.clear(); }

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  struct Source {
    TextBox* box;
    std::size_t first;  // where its titles go
  };
  struct Filled {
    TextBox* box;
    QString before;
    QString after;
  };

  bool keyPressed(const Source& source, const QKeyEvent& event);
  bool dropped(const Source& source, QDropEvent& drop);
  bool menuAsked(const Source& source, const QContextMenuEvent& asked);
  bool paste(const Source& source, const QString& text);
  void fill(const Source& source, const std::vector<QString>& titles);
  bool canUndo(const TextBox& box) const;
  void undo();

  std::vector<TextBox*> entries_;
  std::vector<Source> sources_;
  Say say_;
  std::vector<Filled> last_;  // by the last paste
  TextBox* pastedInto_ = nullptr;
  QString leftThere_;  // the text of that box right after
};

}  // namespace quillbox
