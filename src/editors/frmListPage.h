#pragma once

#include <functional>
#include <memory>
#include <span>
#include <string>
#include <vector>

#include "editors/frmEditor.h"
#include "forms/form.h"
#include "forms/item_line.h"

namespace quillbox {

class ElidedLabel;
class ListPaste;
class TextBox;

/// What the second page of an editor is made of: the entries of one list field.
struct ListPageTables {
  const char* formName;
  const char* caption;
  const Field* field;                     ///< the list
  const char* boxName;                    ///< of the control array of the boxes, from 0
  const char* captionName;                ///< of that of their captions
  std::span<const char* const> captions;  ///< one for each entry
  std::span<const ButtonRow> buttons;     ///< exitCollection leaves the page
  const char* toolTip;                    ///< of the menu item that leads here
  NameBoxes nameBoxes;                    ///< of the editor
};

/// The second page of an editor. It holds nothing but its boxes: the editor fills, empties and
/// reads them. It steps through the collection by the second position, round and round, whatever
/// item the editor itself is at.
class frmListPage : public Form {
 public:
  /// What the page asks of its editor.
  struct Owner {
    std::function<void(int item)> showItem;  ///< reads an item into the record buffer and shows it
    std::function<void()> leave;
    std::function<void()> edited;  ///< the user has changed an entry
  };

  frmListPage(Program& program, const ListPageTables& tables, Owner owner);
  ~frmListPage() override;

  /// List field to boxes, without trailing blanks.
  void UpdateScreen(std::span<const std::byte> record);

  /// Boxes to list field.
  void GetScreen(std::span<std::byte> record) const;

  /// Whether a box holds anything else than the record, or anything at all without one.
  bool differsFrom(const std::vector<std::byte>* record) const;

  void clear();

  /// What the boxes hold, and the same as if the user had typed it.
  QStringList entries() const;
  void setEntries(const QStringList& entries);

  /// The line at the top: whose list this is.
  void nameItem(const QString& text);

 protected:
  void Form_Unload() override { Undraw(); }

 private:
  void choose(Command command);
  void Undraw() { owner_.leave(); }
  void step(int by);
  QString shownText(std::span<const std::byte> record, std::size_t entry) const;

  const ListPageTables& tables_;
  Owner owner_;
  std::vector<TextBox*> boxes_;
  std::unique_ptr<ListPaste> paste_;
  ElidedLabel* lblItem_ = nullptr;
};

}  // namespace quillbox
