#pragma once

#include <QShortcut>
#include <algorithm>
#include <filesystem>
#include <functional>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "support/model_fixture.h"

namespace quillbox::test {

/// The user's commands for items, each with its effect on the model.
class ModelCommands : public ModelFixture {
 protected:
  using ModelFixture::ModelFixture;

  // Buttons

  /// Only if something is shown; otherwise the program would end.
  void write() {
    note("Write Data");
    const int slot = model().newSlot();
    perform([&] { expectError(model().write()); }, [&] { click(kind().buttons.write); },
            [&] { model().writeFailed(slot); });
  }

  void clear() {
    note("Clear Data");
    keepBefore();
    model().clear();
    click(kind().buttons.clear);
  }

  void removeItem(bool yes) {
    const auto& titles = kind().titles;
    note("Delete, ", yes ? "yes" : "no");
    model().giveUpSlot();
    const auto change = [&] {
      desktop_.expectQuestion(titles.question, "Do you really want to delete this?!",
                              yes ? Answer::yes : Answer::no);
      const std::string error = yes ? model().removeItem() : std::string();
      expectError(error);
      if (!yes && titles.aborted != nullptr) desktop_.expectMessage(titles.aborted, "Aborted.");
      if (yes && error.empty() && titles.deleted != nullptr)
        desktop_.expectMessage(titles.deleted, "Deleted.");
    };
    perform(change, [&] { click(kind().buttons.remove); });
  }

  // What can be undone

  /// Whether the status line offers it.
  bool isOffered(const char* name) {
    const auto* offered = form().findChild<QPushButton*>(QString::fromUtf8(name));
    return offered != nullptr && offered->isVisible();
  }

  void takeBack(const char* offered) {
    if (!isOffered(offered)) return;
    note(offered);
    model().giveUpSlot();
    perform([&] { model().takeBack(); }, [&] { click(offered); },
            [&] { model().undo->isBegun = true; });
  }

  /// The text that the last command removed from the form. (It would be kept for longer.)
  void bringBack() {
    if (!isOffered("cmdBringBack")) return;
    note("Bring Back");
    const EditorModel left = before_.value();
    model().giveUpSlot();
    perform([&] { model().bringBack(left); }, [&] { click("cmdBringBack"); },
            [&] { before_.emplace(left); });
  }

  void duplicate() {
    note("Duplicate");
    keepBefore();
    model().giveUpSlot();
    model().duplicate();
    // A window that has not yet received an event would not see the key.
    for (QShortcut* keys : form().findChildren<QShortcut*>())
      if (keys->key() == QKeySequence(QStringLiteral("Ctrl+D"))) Q_EMIT keys->activated();
  }

  void next() {
    note("Next");
    model().giveUpSlot();
    perform([&] { model().next(); }, [&] { next_->click(); });
  }

  /// Only if there is something to find; otherwise it would search for ever.
  void previous() {
    note("Previous");
    model().giveUpSlot();
    perform([&] { model().previous(); }, [&] { previous_->click(); });
  }
  bool hasPrevious() {
    const bool isEmpty = model().count < 1;
    return model().previousEnabled && (isEmpty || model().previousItem());
  }

  /// No answer: cancelled.
  void goTo(const std::optional<GoToAnswer>& answer) {
    note("Go To '", answer ? answer->text + "'" : "', cancelled");
    model().giveUpSlot();
    const auto change = [&] {
      desktop_.expectInput("Record #", "Go To Record",
                           answer ? std::optional(answer->text) : std::nullopt);
      if (!answer) return;
      if (model().isItem(*answer))
        model().show(*answer->item);
      else if (answer->item || kind().skipsDeleted())
        desktop_.expectMessage(kind().titles.invalid, "Invalid input?!");
      else
        expectError(errorText(answer->error));
    };
    perform(change, [&] { click(kind().buttons.goTo); });
  }

  // The list page

  /// The song pages are part of the form: going there and back is not another command.
  void openList() {
    note("open the list");
    control<QAction>(kind().list.action).trigger();
    EXPECT_EQ(formName(), std::string(kind().list.formName) + (kind().isMusic() ? "1" : ""));
  }
  void stepList(int by) {
    note(by > 0 ? "next on the list" : "previous on the list");
    perform([&] { model().stepList(by); },
            [&] { click(by > 0 ? "cmdNext" : kind().list.previous); });
  }
  void leavePage(const char* exit, bool byWindow = false) {
    if (byWindow)
      form().close();
    else
      click(exit);
  }

  // Sorting and searching

  /// Opens the sort form, with these ticks.
  void tickKeys(const std::vector<bool>& ticks) {
    trigger(kind().sort.action);
    EXPECT_EQ(formName(), kind().sort.formName);
    for (std::size_t key = 0; key < ticks.size(); ++key) {
      const std::string name = std::string(kind().sort.boxes) + "_" + std::to_string(key);
      if (ticks[key] != model().ticks[key]) check(name.c_str()).click();
      model().ticks[key] = ticks[key];
    }
  }

  /// A sort that fails ends the program; so does sorting books, with everything under the backup's
  /// name.
  void beginSort() {
    note("sort");
    const std::string sorted = collection();
    const auto change = [&] {
      if (kind().isBooks()) {
        disk_[withEnding(sorted, "bak")] = disk_.extract(sorted).mapped();
        return;
      }
      model().sort();
      desktop_.expectMessage("Quillbox", "Sorting complete.");
    };
    const bool isDone = perform(change, [&] { click(kind().sort.begin); });
    EXPECT_EQ(desktop_.endedAtOnce, !isDone || kind().isBooks());
    if (!std::exchange(desktop_.endedAtOnce, false)) return;
    if (isDone) {
      std::filesystem::rename(withEnding(sorted, "bak"), sorted);
      disk_[sorted] = disk_.extract(withEnding(sorted, "bak")).mapped();
    }
    startProgram(sorted);
  }

  /// With the search form filled in. True for a hit.
  bool beginSearch() {
    bool isHit = false;
    const auto change = [&] {
      std::string error;
      isHit = model().searchFor(error);
      note("search: ", isHit ? "hit" : "no hit");
      expectError(error);
      if (!isHit && error.empty()) desktop_.expectMessage("Quillbox", kind().notFound);
    };
    const bool isDone = perform(change, [&] { click(kind().search.begin); });
    if (isDone && isHit) return true;
    EXPECT_EQ(formName(), kind().search.formName);
    return false;
  }

  // Printing

  /// Whether the last read of the collection failed.
  bool lastReadFailed() {
    for (std::size_t nth = files_.operations().size(); nth-- > 0;) {
      const auto& [operation, path] = files_.operations().at(nth);
      if (path != collection() || operation == FileOperation::close) continue;
      return std::ranges::count(files_.failed(), nth) > 0;
    }
    return false;
  }

  /// To a text file, or cancelled. An item that cannot be read is listed blank, and if the first
  /// one cannot be shown afterwards, the form stays.
  void printList(bool toFile) {
    note("Print List, ", toFile ? "to a file" : "cancelled");
    const auto change = [&] {
      desktop_.expectPrint(toFile ? std::optional(PrintChoice{true}) : std::nullopt);
      if (toFile)
        desktop_.expectSave("Print to FileName", "Text File (*.txt)|*.txt",
                            std::exchange(listingName_, path(kListing)), path(kListing));
    };
    ignoresFaults_ = true;
    perform(change, [&] { trigger("PrintList"); });
    ignoresFaults_ = false;
    if (!lastReadFailed()) model().show(1);
  }
};

}  // namespace quillbox::test
