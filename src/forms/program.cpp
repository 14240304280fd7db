#include "forms/program.h"

#include <algorithm>
#include <iterator>

#include "forms/file_drops.h"
#include "forms/form.h"
#include "forms/help_window.h"
#include "platform/desktop.h"

namespace quillbox {

Program::Program(AppState& state, Desktop& desktop)
    : state_(state), desktop_(desktop), drops_(std::make_unique<FileDrops>(*this)) {}

Program::~Program() = default;

HelpWindow& Program::help() {
  if (!help_) help_ = std::make_unique<HelpWindow>(windowPlaces_);
  return *help_;
}

void Program::run(const std::function<void()>& handler) {
  if (ending_ || isRunning_) return;
  const std::vector<Form*> shownBefore = visibleForms();
  isRunning_ = true;
  for (Form* form : forms_) form->clearStatus();
  try {
    handler();
  } catch (const RunTimeError& error) {
    for (Form* form : shownBefore) form->show();
    report(error);
  } catch (const ProgramEnd&) {
    ending_ = true;
    for (Form* form : forms_) form->keepTyped();
    state_.files.closeAll();
    desktop_.endAtOnce();
  }
  isRunning_ = false;
  if (!ending_ && visibleForms().empty()) shell_->showStartScreen();
}

void Program::message(std::string_view title, std::string_view text, MessageIcon icon) {
  desktop_.messageBox({std::string(title), std::string(text), Buttons::ok, icon});
}

void Program::report(const RunTimeError& error) {
  message(kDefaultTitle, error.message(), MessageIcon::critical);
}

void Program::end() {
  ending_ = true;
  state_.files.closeAll();
  desktop_.quit();
}

void Program::hideForms() {
  for (Form* form : visibleForms()) form->hide();
}

void Program::DeleteForm::operator()(Form* form) const { delete form; }

std::vector<Form*> Program::visibleForms() const {
  std::vector<Form*> visible;
  std::ranges::copy_if(forms_, std::back_inserter(visible),
                       [](const Form* form) { return form->isVisible(); });
  return visible;
}

}  // namespace quillbox
