#pragma once

#include <functional>
#include <span>

#include "forms/field_sheet.h"
#include "forms/form.h"
#include "records/kinds.h"

namespace quillbox {

struct FoundItem;
struct SearchForm;

/// The editor's inputs that its search form repeats, with the same names and captions.
struct SearchPage {
  std::span<const InputRow> inputs;
  std::span<const HeadingRow> headings = {};
};

/// The search form of an editor: inputs to fill, and a button that finds the first item that
/// matches them all. It is hidden, never unloaded, so the inputs keep their values.
class frmSearch : public Form {
 public:
  /// What the form needs from its editor.
  struct Owner {
    std::function<void(const FoundItem&)> found;  ///< shows the editor with the item
    std::function<void()> leave;                  ///< shows the editor unchanged
  };

  /// The page must outlive the form.
  frmSearch(Program& program, const CollectionKind& kind, const SearchPage& page, Owner owner);

  /// Shows the form instead of its editor; its lists have the entries of the editor's lists.
  void open(Form& editor, const FieldSheet& editorSheet);

  // The begin button's handler, under its names on the forms.
  void cmdSearch_Click();
  static constexpr auto cmdBeginSearch_Click = &frmSearch::cmdSearch_Click;
  static constexpr auto cmbBeginSearch_Click = &frmSearch::cmdSearch_Click;

 protected:
  void Form_Unload() override { owner_.leave(); }

 private:
  void enableInputs();

  const CollectionKind& kind_;
  const SearchForm& form_;
  Owner owner_;
  FieldSheet* sheet_;
};

}  // namespace quillbox
