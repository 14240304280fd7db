#pragma once

#include <deque>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "platform/desktop.h"
#include "support/fake_printer.h"

namespace quillbox::test {

/// A desktop with scripted answers. A box that was not expected, or not next, fails the test; so
/// does one that never appeared.
class FakeDesktop : public Desktop {
 public:
  FakeDesktop() = default;
  FakeDesktop(const FakeDesktop&) = delete;
  FakeDesktop& operator=(const FakeDesktop&) = delete;
  ~FakeDesktop() override;

  /// The box of a run-time error has an error icon; any other has none unless `icon` is given.
  void expectMessage(std::string title, std::string text, std::optional<MessageIcon> icon = {});
  void expectQuestion(std::string title, std::string text, Answer answer);
  void expectInput(std::string prompt, std::string title, std::optional<std::string> answer,
                   std::string preset = {});

  void expectOpen(std::string title, std::string filter, std::optional<std::string> answer);
  /// The same for any filter and any offered name.
  void expectSave(std::string title, std::optional<std::string> answer);

  /// A save dialog that offers `fileName`, or any name if none is given.
  void expectSave(std::string title, std::string filter, std::optional<std::string> fileName,
                  std::optional<std::string> answer);

  /// A print dialog answered with paper or a text file, or cancelled.
  void expectPrint(std::optional<PrintChoice> answer);

  /// Makes the box expected last the next one.
  void moveLastToFront();

  void forgetExpected() { expected_.clear(); }

  /// Fails the test unless everything expected has appeared.
  void expectNothingLeft();

  std::string today = "11/21/2026";
  std::string dateForm = "M/d/yy";
  std::function<void()> onRest;  ///< called by every rest()

  /// Called by every box and dialog, with title and text, while the program waits.
  std::function<void(const std::string& title, const std::string& text)> onBox;

  /// Accepts every unexpected box without a failure.
  bool tolerateMessages = false;

  /// If set, a box other than the next expected one is no failure: it is answered with OK, No or
  /// Cancel, and its text is added here.
  std::vector<std::string>* surprises = nullptr;

  /// Answers an open dialog that was not expected.
  std::optional<std::string> tolerateOpen;

  int rests = 0;
  int printerSetups = 0;
  std::string dialogName;    ///< of the last dialog for a file or the printer
  std::string documentName;  ///< offered by the last print dialog
  FakePrinter fakePrinter;
  bool quitAsked = false;
  std::vector<std::string> opened;  ///< files opened in other programs
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
