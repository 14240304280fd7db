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

/// What the panel of an editor shows, and what it asks of it.
struct PanelSource {
  const CollectionKind& kind;
  RecordTexts texts;
  std::function<void(int item)> show;  ///< exactly as Go To
  std::function<void()> leave;         ///< the focus goes back to the form
};

/// The panel beside the form of an editor: all items of its collection in a list, and views that
/// make something of them. It reads the file in short pieces while nothing else is to be done, and
/// never writes.
class Panel : public QTabWidget {
 public:
  Panel(Program& program, PanelSource source);

  const CollectionKind& kind() const { return source_.kind; }

  /// Another collection, or one that was sorted: everything is read anew.
  void start(int count);

  /// Items were added behind the last, or there are fewer now.
  void setCount(int count);

  /// The item was written: this is what the file holds.
  void take(int item, std::span<const std::byte> record);

  /// The form shows this item now; 0: none, or a new one.
  void mark(int item);

  /// The focus goes to the line that items are found by.
  void focusFind();

  /// Shows the next item of the list on the form.
  void showNext();

  /// Room for the columns that tell items apart, and for as many rows as a glance takes in.
  QSize sizeHint() const override;

  /// Room for all tabs.
  QSize minimumSizeHint() const override;

 protected:
  void showEvent(QShowEvent* event) override;
  void hideEvent(QHideEvent* event) override;

 private:
  /// A view is read to when it is first looked at.
  struct View {
    PanelView* view;
    ItemReading reading;
    bool isWanted = false;
    bool isShown = false;  ///< what was taken
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
