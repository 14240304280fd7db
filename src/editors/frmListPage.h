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

/// The parts of an editor's second page: the entries of one list field.
struct ListPageTables {
  const char* formName;
  const char* caption;
  const Field* field;                     ///< the list
  const char* boxName;                    ///< the control array of the boxes, from 0
  const char* captionName;                ///< the control array of their captions
  std::span<const char* const> captions;  ///< one for each entry
  std::span<const ButtonRow> buttons;     ///< exitCollection leaves the page
  const char* toolTip;                    ///< of the menu item that opens the page
  NameBoxes nameBoxes;                    ///< of the editor
};

/// The second page of an editor. Its only contents are its boxes: the editor fills, clears and
/// reads them. It steps through the collection by the second position, wrapping round, whatever the
/// editor's item is.
class frmListPage : public Form {
 public:
  /// What the page needs from its editor.
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

  /// Whether the boxes differ from the record or, without one, whether any is filled.
  bool differsFrom(const std::vector<std::byte>* record) const;

  void clear();

  /// The contents of the boxes, and setting them as if the user had typed them.
  QStringList entries() const;
  void setEntries(const QStringList& entries);

  /// The line at the top, which names the item of this list.
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
