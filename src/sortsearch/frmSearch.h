#pragma once

#include <functional>
#include <span>

#include "forms/field_sheet.h"
#include "forms/form.h"
#include "records/kinds.h"

namespace quillbox {

struct FoundItem;
struct SearchForm;

/// What of its inputs an editor's search form repeats, under the same names and captions.
struct SearchPage {
  std::span<const InputRow> inputs;
  std::span<const HeadingRow> headings = {};
};

/// The search form of an editor: inputs to fill, and a button that looks for the first item that
/// has all of it. It is hidden, never unloaded, so that the inputs stay as they are.
class frmSearch : public Form {
 public:
  /// What the form asks of its editor.
  struct Owner {
    std::function<void(const FoundItem&)> found;  ///< shows itself with the item
    std::function<void()> leave;                  ///< shows itself as it was
  };

  /// The page must outlive the form.
  frmSearch(Program& program, const CollectionKind& kind, const SearchPage& page, Owner owner);

  /// Shows the form instead of its editor; its lists offer what the editor's lists offer.
  void open(Form& editor, const FieldSheet& editorSheet);

  // The begin button's handler, under the names it has on the forms.
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
