#include "forms/program.h"

#include <gtest/gtest.h>

#include <memory>

#include "forms/form.h"
#include "platform/checked16.h"
#include "support/failing_files.h"
#include "support/fake_desktop.h"
#include "support/test_folder.h"

namespace quillbox::test {
namespace {

class SomeForm : public Form {
 public:
  explicit SomeForm(Program& program) : Form(program, "frmSome") {}

 protected:
  void Form_Unload() override { hide(); }
};

class ProgramTest : public testing::Test, public Shell {
 protected:
  ProgramTest() { program_.setShell(*this); }

  void showStartScreen() override {
    ++startScreens_;
    start_.show();
  }

  void FileOpen() override {}
  bool opens(const std::string& /*path*/) override { return false; }
  void open(const std::string& /*path*/) override {}
  std::string SaveAs() override { return {}; }
  void showNewCollection() override {}
  Board& board() override { return board_; }

  TestFolder folder_;
  FailingFiles files_;
  FakeDesktop desktop_;
  AppState state_{files_};
  Program program_{state_, desktop_};
  SomeForm form_{program_};
  SomeForm start_{program_};
  NoBoard board_;
  int startScreens_ = 0;
};

TEST_F(ProgramTest, ShowsARunTimeErrorAndTheFormsThatTheHandlerHid) {
  form_.show();
  desktop_.expectMessage("Quillbox", "Run-time error '13':\n\nType mismatch");
  program_.run([&] {
    form_.hide();
    throw RunTimeError(ErrorNumber::typeMismatch);
  });
  EXPECT_TRUE(form_.isVisible());
  EXPECT_EQ(startScreens_, 0);
  EXPECT_FALSE(program_.isEnding());
}

TEST_F(ProgramTest, NamesTheFileBelowTheError) {
  form_.show();
  desktop_.expectMessage("Quillbox",
                         "Run-time error '58':\n\nFile already exists\n/music/jazz.bak");
  program_.run([] { throw RunTimeError(ErrorNumber::fileAlreadyExists, "/music/jazz.bak"); });
}

TEST_F(ProgramTest, ShowsTheStartScreenWhenNoFormIsLeft) {
  form_.show();
  program_.run([&] { form_.hide(); });
  EXPECT_EQ(startScreens_, 1);
  EXPECT_TRUE(start_.isVisible());
}

TEST_F(ProgramTest, ShowsTheStartScreenAfterAnErrorThatLeftNothing) {
  desktop_.expectMessage("Quillbox", "Run-time error '6':\n\nOverflow");
  program_.run([] { checked16(INT16_MAX + 1); });
  EXPECT_EQ(startScreens_, 1);
}

TEST_F(ProgramTest, RunsOneHandlerAtATime) {
  form_.show();
  bool began = false;
  program_.run([&] {
    EXPECT_TRUE(program_.isRunning());
    program_.run([&] { began = true; });
  });
  EXPECT_FALSE(began);
  EXPECT_FALSE(program_.isRunning());
  program_.run([&] { began = true; });
  EXPECT_TRUE(began) << "nothing is held back afterwards";
}

TEST_F(ProgramTest, RunsNoHandlerWhileAnErrorIsShownAndTheNextOneAfterIt) {
  form_.show();
  bool began = false;
  desktop_.expectMessage("Quillbox", "Run-time error '6':\n\nOverflow");
  desktop_.onBox = [&](const std::string&, const std::string&) {
    program_.run([&] { began = true; });
  };
  program_.run([] { checked16(INT16_MAX + 1); });
  EXPECT_FALSE(began);
  program_.run([&] { began = true; });
  EXPECT_TRUE(began);
}

TEST_F(ProgramTest, AWindowStaysWhenItIsClosedWhileAHandlerRuns) {
  form_.show();
  program_.run([&] {
    EXPECT_FALSE(form_.close());
    EXPECT_TRUE(form_.isVisible());
  });
  start_.show();
  form_.close();
  EXPECT_FALSE(form_.isVisible());
}

TEST_F(ProgramTest, EndingAtOnceClosesTheFilesAndAsksNothing) {
  form_.show();
  writeFile(folder_.path("jazz.MCS"), "bytes");
  const int number =
      state_.files.open(file_number::collection, folder_.path("jazz.MCS"), OpenMode::update);
  program_.run([&] {
    form_.hide();
    endProgram();
  });
  EXPECT_TRUE(desktop_.endedAtOnce);
  EXPECT_FALSE(desktop_.quitAsked);
  EXPECT_FALSE(state_.files.isOpen(number));
  EXPECT_EQ(startScreens_, 0);
  bool ran = false;
  program_.run([&] { ran = true; });
  EXPECT_FALSE(ran) << "no handler runs any more";
}

TEST_F(ProgramTest, EndingClosesTheFilesAndQuits) {
  form_.show();
  program_.run([&] {
    form_.hide();
    program_.end();
  });
  EXPECT_TRUE(desktop_.quitAsked);
  EXPECT_EQ(startScreens_, 0);
}

}  // namespace
}  // namespace quillbox::test
