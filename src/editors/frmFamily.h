#pragma once

#include <memory>
#include <optional>

#include "editors/frmEditor.h"
#include "editors/frmListPage.h"

namespace quillbox {

/// What an editor of the family from video to books has besides the common tables.
struct FamilyTables {
  EditorTables editor;
  const ListPageTables* listPage = nullptr;  ///< none in the book editor
  /// A deleted record leaves the form unchanged (video only).
  bool hidesDeleted = false;
  /// Clicking a caption moves the focus to its input (software only).
  bool captionsClickable = false;
  /// After a new item the form is cleared without starting another one (books only).
  bool clearsScreenOnly = false;
};

/// The editors of video, software, comics and books, implemented once.
class frmFamily : public frmEditor {
 protected:
  /// `extension` is the kind's. The tables must outlive the form.
  frmFamily(Program& program, PrintEngine& printEngine, std::string_view extension,
            const FamilyTables& tables);

  void Form_Load(OpenCollection& opening) override;
  void choose(Command command) override;
  void UpdateScreen() override;
  void GetScreen(std::span<std::byte> record) override;
  void ClearData() override;
  bool subListDiffers(const Record* record) const override;
  QStringList subList() const override;
  void putBackSubList(const QStringList& entries) override;
  Form& formOnScreen() override;
  void afterNewItem() override;

 private:
  void clearscreen();
  void leaveListPage();
  void showListPosition(int item);
  void nameItemOnListPage();

  const FamilyTables& family_;
  std::unique_ptr<frmListPage> listPage_;
  /// The item that the list page put on the form, if it is not the indicator's.
  std::optional<int> steppedTo_;
};

}  // namespace quillbox
