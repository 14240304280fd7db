#include <cstring>
#include <set>

#include "forms/all_forms.h"

namespace quillbox::test {
namespace {

/// Each caption, and what the button does by which keys.
const std::set<std::string> kToolTips = {
    "&Begin Search: Show the first item that has all of this (Alt+B or Enter)",
    "&Begin Sort: Sort the file by what is ticked (Alt+B)",
    "&Begin Sorting: Sort the file by what is ticked (Alt+B)",
    "&Clear Data: Empty the form for a new item (Ctrl+N)",
    "&Clear Songs : Empty the boxes of all songs (Alt+C)",
    "&Delete Data: Mark this item as deleted (Ctrl+Shift+Del)",
    "&Delete Item: Mark this item as deleted (Ctrl+Shift+Del)",
    "&Go: Make the collection and open it (Alt+G or Enter)",
    "&GoTo: Show the item of a number (Ctrl+G)",
    "&Next Item: Show the item after this one (Ctrl+PgDown)",
    "&Next Page: Show the other songs of this album (Alt+N)",
    "&Next: Show the item after this one (Ctrl+PgDown)",
    "&Previous Item: Show the item before this one (Ctrl+PgUp)",
    "&Previous Page: Show the other songs of this album (Alt+P)",
    "&Put Back: shelf.BCS lies in shelf.bak: 55 books (Alt+P)",
    "&Take Off the List: The collection itself stays as it is (Alt+T or Delete)",
    "&Write Data: Store what is on the form in the file (Ctrl+S)",
    "&WriteData: Store what is on the form in the file (Ctrl+S)",
    "B&egin Search: Show the first item that has all of this (Alt+E or Enter)",
    "Be&gin Search: Show the first item that has all of this (Alt+G or Enter)",
    "Be&gin Sort: Sort the file by what is ticked (Alt+G)",
    "C&lear Data: Empty the form for a new item (Ctrl+N)",
    "Cancel: Make nothing (Escape)",
    "Cancel: Print nothing (Escape)",
    "Cle&ar Data: Empty the form for a new item (Ctrl+N)",
    "De&lete Item: Mark this item as deleted (Ctrl+Shift+Del)",
    "Delete &Item: Mark this item as deleted (Ctrl+Shift+Del)",
    "E&xit Search: Back to the collection (Alt+X or Escape)",
    "E&xit Songs: Back to the album (Alt+X or Ctrl+W)",
    "E&xit Window: Back to the collection (Alt+X or Escape)",
    "E&xit Window: Leave this window (Ctrl+W)",
    "E&xit: Back to the collection (Alt+X or Escape)",
    "G&oTo: Show the item of a number (Ctrl+G)",
    "Go&To: Show the item of a number (Ctrl+G)",
    "Ne&xt Item: Show the item after this one (Ctrl+PgDown)",
    "OK: Print the listing (Enter)",
    "Pre&vious Item: Show the item before this one (Ctrl+PgUp)",
    "Pre&vious: Show the item before this one (Ctrl+PgUp)",
};

bool hasPanel(const FormCase& form) {
  return !form.steps.empty() && std::strcmp(form.steps.back(), "cmdPanel") == 0;
}

TEST_F(AllForms, SayWhatTheirButtonsDoAndByWhichKeys) {
  std::set<std::string> toolTips;
  for (const FormCase& which : kAllForms) {
    if (hasPanel(which)) continue;
    for (const auto* button :
         controlsOf<QPushButton>(open(which, {1, false, Look::Content::sample})))
      toolTips.insert((button->text() + ": " + button->toolTip()).toStdString());
  }
  EXPECT_EQ(toolTips, kToolTips);
}

}  // namespace
}  // namespace quillbox::test
