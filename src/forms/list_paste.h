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

/// Pasting a text of several lines into a box of a list puts its titles (track_list.h) into the
/// empty boxes from that one on, however it is pasted: by keys, context menu, middle button or
/// dropping. A filled box is never overwritten, except the one pasted into when all its text is
/// selected. One undo in that box removes all of them. A text of one line is pasted as usual,
/// without its line break.
class ListPaste : public QObject {
 public:
  /// Called with the result of pasting into a box; the text is empty when it was undone.
  using Say = std::function<void(TextBox& into, const QString& text)>;

  /// The boxes, in their order, must outlive this object.
  ListPaste(std::vector<TextBox*> entries, Say say);

  /// The same for a box beside the list, which stays as it is: it fills the entries from `first`.
  void alsoIn(TextBox& box, std::size_t first);

  /// The paste can no longer be undone: the boxes show something else.
  void forget() { last_.clear(); }

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  struct Source {
    TextBox* box;
    std::size_t first;  // where its titles begin
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
  QString leftThere_;  // the text of that box just after it
};

}  // namespace quillbox
