#include "support/fake_desktop.h"

#include <gtest/gtest.h>

#include <utility>

#include "platform/run_time_error.h"

namespace quillbox::test {

FakeDesktop::~FakeDesktop() { expectNothingLeft(); }

void FakeDesktop::expectMessage(std::string title, std::string text,
                                std::optional<MessageIcon> icon) {
  const bool isError = text.starts_with("Run-time error");
  expected_.push_back({Kind::message, std::move(title), std::move(text), Answer::ok, {}});
  expected_.back().icon = icon.value_or(isError ? MessageIcon::critical : MessageIcon::none);
}

void FakeDesktop::expectQuestion(std::string title, std::string text, Answer answer) {
  expected_.push_back({Kind::question, std::move(title), std::move(text), answer, {}});
  expected_.back().icon = MessageIcon::question;
}

void FakeDesktop::expectInput(std::string prompt, std::string title,
                              std::optional<std::string> answer, std::string preset) {
  expected_.push_back({Kind::input, std::move(title), std::move(prompt), Answer::ok,
                       std::move(answer), std::move(preset)});
}

void FakeDesktop::expectOpen(std::string title, std::string filter,
                             std::optional<std::string> answer) {
  expected_.push_back(
      {Kind::open, std::move(title), std::move(filter), Answer::ok, std::move(answer)});
}

void FakeDesktop::expectSave(std::string title, std::optional<std::string> answer) {
  expectSave(std::move(title), "", std::nullopt, std::move(answer));
}

void FakeDesktop::expectSave(std::string title, std::string filter,
                             std::optional<std::string> fileName,
                             std::optional<std::string> answer) {
  expected_.push_back({Kind::save, std::move(title), std::move(filter), Answer::ok,
                       std::move(answer), std::move(fileName)});
}

void FakeDesktop::expectPrint(std::optional<PrintChoice> answer) {
  expected_.push_back({Kind::print, "QBX List Print", "", Answer::ok, {}, {}, answer});
}

void FakeDesktop::moveLastToFront() {
  expected_.push_front(std::move(expected_.back()));
  expected_.pop_back();
}

void FakeDesktop::expectNothingLeft() {
  for (const Expected& missing : expected_)
    ADD_FAILURE() << "never shown: [" << missing.title << "] " << missing.text;
  expected_.clear();
}

Answer FakeDesktop::messageBox(const MessageBox& box) {
  const Kind kind = box.buttons == Buttons::yesNo ? Kind::question : Kind::message;
  const auto next = take(kind, box.title, box.text);
  if (next) {
    EXPECT_EQ(next->icon, box.icon) << "the icon of [" << box.title << "] " << box.text;
    return next->answer;
  }
  return kind == Kind::question ? Answer::no : Answer::ok;
}

std::optional<std::string> FakeDesktop::inputBox(const std::string& prompt,
                                                 const std::string& title,
                                                 const std::string& preset) {
  const auto next = take(Kind::input, title, prompt);
  if (next && next->offered) {
    EXPECT_EQ(*next->offered, preset);
  }
  return next ? next->typed : std::nullopt;
}

std::optional<std::string> FakeDesktop::openDialog(const FileDialog& dialog) {
  dialogName = dialog.name;
  if (tolerateOpen) return tolerateOpen;
  const auto next = take(Kind::open, dialog.title, dialog.filter);
  return next ? next->typed : std::nullopt;
}

std::optional<std::string> FakeDesktop::saveDialog(const FileDialog& dialog) {
  dialogName = dialog.name;
  const auto next = take(Kind::save, dialog.title, dialog.filter);
  if (next && next->offered) {
    EXPECT_EQ(*next->offered, dialog.fileName);
  }
  return next ? next->typed : std::nullopt;
}

std::optional<PrintChoice> FakeDesktop::printDialog(const std::string& title,
                                                    const std::string& offered) {
  documentName = offered;
  const auto next = take(Kind::print, title, "");
  return next ? next->choice : std::nullopt;
}

void FakeDesktop::rest(int, const std::function<bool()>& over) {
  ++rests;
  if (onRest) onRest();
  constexpr int tooMany = 1000;
  if (!over() && rests >= tooMany) {
    ADD_FAILURE() << "rests for ever";
    endProgram();
  }
}

std::optional<FakeDesktop::Expected> FakeDesktop::take(Kind kind, const std::string& title,
                                                       const std::string& text) {
  if (onBox) onBox(title, text);
  const bool isNext = !expected_.empty() && expected_.front().kind == kind &&
                      expected_.front().title == title && expected_.front().text == text;
  if (surprises != nullptr && !isNext) {
    surprises->push_back(text);
    return std::nullopt;
  }
  if (expected_.empty()) {
    if (tolerateMessages) return std::nullopt;
    ADD_FAILURE() << "not expected: [" << title << "] " << text;
    return std::nullopt;
  }
  Expected next = std::move(expected_.front());
  expected_.pop_front();
  EXPECT_EQ(next.kind, kind);
  EXPECT_EQ(next.title, title);
  EXPECT_EQ(next.text, text);
  return next;
}

}  // namespace quillbox::test
