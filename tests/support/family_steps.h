#pragma once

#include <initializer_list>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

#include "support/family_files.h"
#include "support/form_fixture.h"

namespace quillbox::test {

/// What users of the editors of video, software, comics and books do.
class FamilySteps : public EditorTest {
 protected:
  using EditorTest::EditorTest;

  std::string stored(int n) { return itemBytes(kind(), bytes(), n); }
  std::string storedFirst(int n) { return textAt(stored(n), 0); }
  void open(std::initializer_list<std::string_view> firsts) {
    openBytes(familyFile(kind(), firsts));
  }

  void expectFileError(const std::string& numberAndText) {
    expectError(numberAndText + "\n" + collectionPath());
  }

  void typeFirst(const std::string& keys) { type(kind().firstBox(), keys.c_str()); }
  void typeOther(const std::string& keys) { type(kind().otherBox(), keys.c_str()); }

  void pressNext() { press(kind().buttons.next); }
  void pressPrevious() { press(kind().buttons.previous); }
  void pressClear() { press(kind().buttons.clear); }
  void pressWrite() { press(kind().buttons.write); }
  void pressGoTo(std::optional<std::string> answer) {
    desktop_.expectInput("Record #", "Go To Record", std::move(answer));
    press(kind().buttons.goTo);
  }
  void goToInvalid(const std::string& answer) {
    desktop_.expectInput("Record #", "Go To Record", answer);
    desktop_.expectMessage("Go To Record", "Invalid input?!");
    press(kind().buttons.goTo);
  }
  void pressDelete(Answer answer) {
    desktop_.expectQuestion(kEditorMessages, "Do you really want to delete this?!", answer);
    press(kind().buttons.remove);
  }
  bool previousEnabled() { return button(kind().buttons.previous).isEnabled(); }
  bool nextEnabled() { return button(kind().buttons.next).isEnabled(); }
};

}  // namespace quillbox::test
