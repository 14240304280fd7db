#pragma once

#include <QString>
#include <QWidget>
#include <functional>
#include <memory>
#include <optional>
#include <span>
#include <vector>

#include "overview/item_filter.h"
#include "overview/item_index.h"
#include "overview/item_order.h"
#include "panel/item_table.h"

class QCheckBox;
class QLineEdit;
class QMenu;
class QTableView;

namespace quillbox {

class ElidedLabel;
class PanelSettings;
class StatusText;

/// All items of a collection as a table: filtered while the user types, sorted by a column, chosen
/// by a click or Enter. It reads the file in pieces and only when requested.
class ItemList : public QWidget {
 public:
  struct Collection {
    OpenFiles& files;
    const OpenCollection& open;
    const CollectionKind& kind;
    RecordTexts texts;
  };

  struct Owner {
    std::function<void(int item)> show;                      ///< exactly like Go To
    std::function<void(std::function<void()> command)> run;  ///< reports failures
    std::function<void()> leave;                             ///< returns the focus to the form
    std::function<void()> moreToRead;                        ///< `readOn` has more to do
  };

  /// Without settings the columns are the initial ones.
  ItemList(Collection collection, Owner owner, PanelSettings* settings);
  ~ItemList() override;

  /// For another collection, or one that was sorted: reads it again.
  void start(int count);

  /// Items were added at the end, or there are fewer now.
  void setCount(int count);

  /// The item was written: `record` is what the file has now.
  void take(int item, std::span<const std::byte> record);

  /// The form now shows this item; 0: none of them.
  void mark(int item);

  /// Continues reading until `stop` returns true; returns whether there is more to read.
  bool readOn(const ItemReading::Stop& stop);

  /// Shows only these items, or all again.
  void showOnly(const std::vector<int>& items, const QString& what);
  void showAll();

  void focusFind();

  /// Shows the next row's item on the form; after the last row the first one.
  void showNext();

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  QWidget* makeFindLine();
  QWidget* makeOnlyLine();
  void makeTable();
  void fillMenu();
  void chooseColumn(const Column& column, bool shown);
  std::vector<const Column*> chosenColumns() const;
  void showColumns();
  bool findKey(int key);
  bool tableKey(int key, Qt::KeyboardModifiers modifiers);
  void find();
  void orderBy(int section);
  void readOrder(const ItemReading::Stop& stop);
  void showRows();
  const std::optional<RunTimeError>& failure() const;
  void tryAgain();
  void markRow();
  void showRow(int row);
  std::vector<int> selectedItems() const;
  void copySelected();
  void tell();

  Collection collection_;
  Owner owner_;
  PanelSettings* settings_;
  ItemIndex index_;
  ItemFilter filter_;
  std::unique_ptr<ItemOrder> order_;  // none: file order
  ItemReading orderReading_;
  bool orderIsRead_ = false;
  Direction direction_ = Direction::up;
  int marked_ = 0;
  bool triesAgain_ = false;  // items could not be read before

  ItemTable* items_;
  QLineEdit* txtFind_ = nullptr;
  QCheckBox* chkDeleted_ = nullptr;
  QMenu* columnMenu_ = nullptr;
  QWidget* onlyLine_ = nullptr;
  ElidedLabel* lblOnly_ = nullptr;
  QTableView* table_ = nullptr;
  StatusText* status_ = nullptr;
};

}  // namespace quillbox
