#include "support/form_fixture.h"
#include "support/machine.h"

namespace quillbox::test {
namespace {

class StartUp : public FormTest {};

TEST_F(StartUp, ShowsTheStartScreenWithoutACollection) {
  start();
  EXPECT_EQ(formName(), "frmBegin2");
  EXPECT_EQ(caption(), "Quillbox V1.71");
  EXPECT_EQ(state_->dataFolder, folder_.path());
  EXPECT_EQ(state_->currentPath, "");
}

TEST_F(StartUp, OpensTheMusicEditorOnTheNamedCollection) {
  writeFile(path("jazz.mcs"), musicFile({album("Miles Davis")}));
  start({path("jazz.mcs") + " "});
  EXPECT_EQ(formName(), "frmMusic");
  EXPECT_EQ(state_->currentPath, path("jazz.mcs")) << "the trailing blank is dropped";
  EXPECT_EQ(caption(), "Music Collection Manager (jazz.mcs)");
  EXPECT_EQ(shown("txtArtist"), std::string("Miles Davis").append(39, ' '));
  EXPECT_EQ(state_->dataFolder, "") << "stays empty: new collections go to the root folder";
}

TEST_F(StartUp, JoinsTheArgumentsWithOneBlank) {
  writeFile(path("my old jazz.MCS"), musicFile({album("Miles Davis")}));
  start({folder_.path() + "/my", "old", "jazz.MCS"});
  EXPECT_EQ(caption(), "Music Collection Manager (my old jazz.MCS)");
}

TEST_F(StartUp, TakesTheLastThreeCharactersForTheExtension) {
  writeFile(path("jazzMCS"), musicFile({album("Miles Davis")}));
  start({path("jazzMCS")});
  EXPECT_EQ(caption(), "Music Collection Manager (jazzMCS)");
}

TEST_F(StartUp, MakesARelativePathAFullOne) {
  writeFile(path("jazz.MCS"), musicFile({album("Miles Davis")}));
  start({"./jazz.MCS"});
  EXPECT_EQ(state_->currentPath, path("jazz.MCS"));
}

TEST_F(StartUp, LetsTheSystemFollowAPathThatLeadsBackFromALink) {
  QUILLBOX_NEEDS(links);
  std::filesystem::create_directories("far/away");
  std::filesystem::create_directory_symlink("far/away", "link");
  writeFile(path("far/jazz.MCS"), musicFile({album("Miles Davis")}));
  start({"link/../jazz.MCS"});
  EXPECT_EQ(state_->currentPath, path("far/jazz.MCS"));
  EXPECT_EQ(shown("txtArtist"), std::string("Miles Davis").append(39, ' '));
  EXPECT_FALSE(std::filesystem::exists("jazz.MCS"));
}

#ifndef _WIN32  // where ".." removes even a missing folder, and "\\" separates folders
TEST_F(StartUp, MakesNothingWhereAPathLeadsBackFromAFolderThatIsMissing) {
  const std::string named = path("missing/../jazz.MCS");
  desktop_.expectMessage("Quillbox", "Run-time error '76':\n\nPath not found\n" + named);
  start({"missing/../jazz.MCS"});
  EXPECT_EQ(formName(), "frmBegin2");
  EXPECT_FALSE(std::filesystem::exists("jazz.MCS"));
  EXPECT_FALSE(std::filesystem::exists("missing"));
}

TEST_F(StartUp, RecognisesBackslashesWhenItTakesThePathApart) {
  writeFile(path("C:\\Data\\jazz.mcs"), musicFile({album("Miles Davis")}));
  start({"C:\\Data\\jazz.mcs "});
  EXPECT_EQ(state_->currentPath, "C:\\Data\\jazz.mcs");
  EXPECT_EQ(caption(), "Music Collection Manager (jazz.mcs)");
}
#endif

TEST_F(StartUp, LeavesOtherFilesUnopened) {
  for (const char* name : {"sounds.WCS", "letter.txt", "MC", "jazz.MCS.gz"}) {
    SCOPED_TRACE(name);
    writeFile(path(name), "untouched");
    files_.forget();
    start({path(name)});
    EXPECT_EQ(formName(), "frmBegin2");
    EXPECT_EQ(state_->dataFolder, folder_.path());
    for (const OperationRecord& looked : files_.operations())
      EXPECT_EQ(looked.operation, FileOperation::exists);
    EXPECT_EQ(file(name), "untouched");
  }
}

TEST_F(StartUp, ShowsTheStartScreenWhenTheCollectionCannotBeOpened) {
  desktop_.expectMessage("Quillbox",
                         "Run-time error '76':\n\nPath not found\n" + path("gone/jazz.MCS"));
  start({path("gone/jazz.MCS")});
  EXPECT_EQ(formName(), "frmBegin2");
  EXPECT_FALSE(std::filesystem::exists(path("gone")));
}

class StartScreen : public FormTest {};

TEST_F(StartScreen, EndsTheProgramWhenItIsClosed) {
  start();
  close();
  EXPECT_TRUE(desktop_.quitAsked);
  EXPECT_FALSE(desktop_.endedAtOnce);
}

TEST_F(StartScreen, EndsTheProgramFromTheToolbar) {
  start();
  choose("X");
  EXPECT_TRUE(desktop_.quitAsked);
}

TEST_F(StartScreen, HasAboutAndContentsInItsHelpMenu) {
  start();
  EXPECT_EQ(control<QAction>("HelpBegin").text(), "&Help");
  EXPECT_EQ(control<QAction>("ContentBegin").text(), "&Contents");
  EXPECT_EQ(control<QAction>("AboutBegin").text(), "&About");
  desktop_.expectMessage("About Quillbox",
                         "Quillbox V1.71\n\nA catalogue for everything you collect, made by people "
                         "who collect.",
                         MessageIcon::information);
  choose("AboutBegin");
}

}  // namespace
}  // namespace quillbox::test
