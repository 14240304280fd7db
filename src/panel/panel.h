#pragma once

#include <QTabWidget>
#include <QTimer>
#include <functional>
#include <span>
#include <vector>

#include "forms/program.h"
#include "overview/item_reading.h"
#include "panel/item_list.h"
#include "panel/panel_view.h"

namespace quillbox {

/// What an editor's panel shows, and what it needs from the editor.
struct PanelSource {
  const CollectionKind& kind;
  RecordTexts texts;
  std::function<void(int item)> show;  ///< exactly like Go To
  std::function<void()> leave;         ///< returns the focus to the form
};

/// The panel beside an editor's form: all items of its collection in a list, and views that
/// evaluate them. It reads the file in short pieces while nothing else is to be done, and never
/// writes.
class Panel : public QTabWidget {
 public:
  Panel(Program& program, PanelSource source);

  const CollectionKind& kind() const { return source_.kind; }

  /// For another collection, or one that was sorted: everything is read again.
  void start(int count);

  /// Items were added at the end, or there are fewer now.
  void setCount(int count);

  /// The item was written: `record` is what the file has now.
  void take(int item, std::span<const std::byte> record);

  /// The form now shows this item; 0: none, or a new one.
  void mark(int item);

  /// Puts the focus on the line for finding items.
  void focusFind();

  /// Shows the next item of the list on the form.
  void showNext();

  /// Wide enough for the columns that identify items, and high enough for a useful number of rows.
  QSize sizeHint() const override;

  /// Wide enough for all tabs.
  QSize minimumSizeHint() const override;

 protected:
  void showEvent(QShowEvent* event) override;
  void hideEvent(QHideEvent* event) override;

 private:
  /// A view gets its items once it has been opened.
  struct View {
    PanelView* view;
    ItemReading reading;
    bool isWanted = false;
    bool isShown = false;  ///< the items read so far
  };

  void addView(PanelView* view, const QString& caption);
  void readSoon();
  void readOn();
  bool readView(View& view, const ItemReading::Stop& stop);
  void lookAt(int tab);

  Program& program_;
  PanelSource source_;
  ItemList* list_;
  std::vector<View> views_;
  QTimer timer_;
};

}  // namespace quillbox
