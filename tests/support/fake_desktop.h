#pragma once

#include <deque>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "platform/desktop.h"
#include "support/fake_printer.h"

namespace quillbox::test {

/// A desktop whose every answer is scripted. A box that was not expected, or is not the one
/// expected next, fails the test; so does one that never came.
class FakeDesktop : public Desktop {
 public:
  FakeDesktop() = default;
  FakeDesktop(const FakeDesktop&) = delete;
  FakeDesktop& operator=(const FakeDesktop&) = delete;
  ~FakeDesktop() override;

  /// The box of a run-time error has the icon of one; any other has none unless `icon` is given.
  void expectMessage(std::string title, std::string text, std::optional<MessageIcon> icon = {});
  void expectQuestion(std::string title, std::string text, Answer answer);
  void expectInput(std::string prompt, std::string title, std::optional<std::string> answer,
                   std::string preset = {});

  void expectOpen(std::string title, std::string filter, std::optional<std::string> answer);
  /// The same without a filter, and whatever it offers.
  void expectSave(std::string title, std::optional<std::string> answer);

  /// A save dialog that offers `fileName`, or whatever it offers where there is none.
  void expectSave(std::string title, std::string filter, std::optional<std::string> fileName,
                  std::optional<std::string> answer);

  /// A print dialog that is answered with paper or a text file, or cancelled.
  void expectPrint(std::optional<PrintChoice> answer);

  /// Makes the box expected last the one expected next.
  void moveLastToFront();

  void forgetExpected() { expected_.clear(); }

  /// Fails the test unless everything expected so far has come.
  void expectNothingLeft();

  std::string today = "11/21/2026";
  std::string dateForm = "M/d/yy";
  std::function<void()> onRest;  ///< run by every rest()

  /// Run by every box and dialog, with its title and text, while the program waits for the answer.
  std::function<void(const std::string& title, const std::string& text)> onBox;

  /// Answers every box that was not expected, without a failure.
  bool tolerateMessages = false;

  /// Where set, a box other than the one expected next is no failure: it is answered with OK, No or
  /// Cancel, and its text kept here.
  std::vector<std::string>* surprises = nullptr;

  /// Answers the open dialog without its being expected.
  std::optional<std::string> tolerateOpen;

  int rests = 0;
  int printerSetups = 0;
  std::string dialogName;    ///< of the last dialog for a file or the printer
  std::string documentName;  ///< offered by the last print dialog
  FakePrinter fakePrinter;
  bool quitAsked = false;
  std::vector<std::string> opened;  ///< files handed to other programs
  bool canOpen = true;              ///< there is a program for them
  bool endedAtOnce = false;

  Answer messageBox(const MessageBox& box) override;
  std::optional<std::string> inputBox(const std::string& prompt, const std::string& title,
                                      const std::string& preset) override;
  std::optional<std::string> openDialog(const FileDialog& dialog) override;
  std::optional<std::string> saveDialog(const FileDialog& dialog) override;
  std::string shortDateForm() override { return dateForm; }
  std::string todayText() override { return today; }
  void printerSetup(const std::string& name) override {
    dialogName = name;
    ++printerSetups;
  }
  std::optional<PrintChoice> printDialog(const std::string& title,
                                         const std::string& documentName) override;
  Printer& printer() override { return fakePrinter; }
  void rest(int milliseconds, const std::function<bool()>& over) override;
  bool openFile(const std::string& path) override {
    opened.push_back(path);
    return canOpen;
  }
  void quit() override { quitAsked = true; }
  void endAtOnce() override { endedAtOnce = true; }

 private:
  enum class Kind { message, question, input, open, save, print };
  struct Expected {
    Kind kind;
    std::string title;
    std::string text;
    Answer answer = Answer::ok;
    std::optional<std::string> typed;
    std::optional<std::string> offered = {};
    std::optional<PrintChoice> choice = {};
    MessageIcon icon = MessageIcon::none;
  };

  std::optional<Expected> take(Kind kind, const std::string& title, const std::string& text);

  std::deque<Expected> expected_;
};

}  // namespace quillbox::test
