#include "forms/recent_collections.h"

#include <QFile>
#include <QSettings>

#include "support/form_fixture.h"
#include "support/machine.h"

namespace quillbox::test {
namespace {

class Recents : public testing::Test {
 protected:
  QString settings(const char* name = "windows.ini") const {
    return QString::fromStdString(folder_.path(name));
  }

  TestFolder folder_;
};

using List = std::vector<RecentCollection>;

TEST_F(Recents, AreNoneAtFirst) {
  EXPECT_EQ(RecentCollections(settings()).all(), List());
  EXPECT_FALSE(QFile::exists(settings())) << "looking makes no file";
}

TEST_F(Recents, OutlastTheProgramTheOneOpenedLastFirst) {
  {
    RecentCollections recents(settings());
    recents.opened("/a/jazz.MCS", 3);
    recents.opened("/a/shelf.bcs", 55);
  }
  RecentCollections recents(settings());
  EXPECT_EQ(recents.all(), (List{{"/a/shelf.bcs", 55}, {"/a/jazz.MCS", 3}}));
  recents.opened("/a/jazz.MCS", 4);
  EXPECT_EQ(recents.all(), (List{{"/a/jazz.MCS", 4}, {"/a/shelf.bcs", 55}}));
}

TEST_F(Recents, AreEightAtMost) {
  RecentCollections recents(settings());
  for (int i = 1; i <= 9; ++i) recents.opened("/a/" + std::to_string(i) + ".MCS", i);
  const List all = recents.all();
  ASSERT_EQ(all.size(), 8U);
  EXPECT_EQ(all.front(), (RecentCollection{"/a/9.MCS", 9}));
  EXPECT_EQ(all.back(), (RecentCollection{"/a/2.MCS", 2}));
}

TEST_F(Recents, KeepTheirOrderAndLearnTheirCountWhenOneIsLeft) {
  RecentCollections recents(settings());
  recents.opened("/a/jazz.MCS", 3);
  recents.opened("/a/shelf.BCS", 55);
  recents.left("/a/jazz.MCS", 4);
  EXPECT_EQ(recents.all(), (List{{"/a/shelf.BCS", 55}, {"/a/jazz.MCS", 4}}));
  recents.left("/a/other.MCS", 9);
  EXPECT_EQ(recents.all().size(), 2U) << "what was taken off does not come back";
}

TEST_F(Recents, CanBeTakenOff) {
  RecentCollections recents(settings());
  recents.opened("/a/jazz.MCS", 3);
  recents.opened("/a/shelf.BCS", 55);
  recents.remove("/a/shelf.BCS");
  EXPECT_EQ(recents.all(), (List{{"/a/jazz.MCS", 3}}));
  recents.remove("/a/jazz.MCS");
  EXPECT_EQ(recents.all(), List());
}

TEST_F(Recents, KeepPathsToTheByte) {
  const std::string paths[] = {"/a/my lists/j\xc3\xa4zz, \"old\" = 1%2.MCS",
                               "/a/\xff\xfe\x80.MCS",
                               "/a/back\\slash;#.MCS",
                               "/a/ blanks .MCS",
                               "/a/new\nline.MCS",
                               "/a/\xe2\x82\xac@Invalid().MCS",
                               "C:\\Data\\jazz.MCS"};
  {
    RecentCollections recents(settings());
    for (const std::string& path : paths) recents.opened(path, 1);
  }
  const List all = RecentCollections(settings()).all();
  ASSERT_EQ(all.size(), std::size(paths));
  for (std::size_t i = 0; i < all.size(); ++i)
    EXPECT_EQ(all.at(i).path, paths[std::size(paths) - 1 - i]);
}

TEST_F(Recents, KeepNoPathThatLeadsElsewhereLaterAndNoOtherFile) {
  RecentCollections recents(settings());
  for (const std::string path : {"", "jazz.MCS", "../jazz.MCS", "/a/letter.txt", "/a/jazz.bak"})
    recents.opened(path, 1);
  EXPECT_EQ(recents.all(), List());
}

TEST_F(Recents, IgnoreWhatIsDamaged) {
  int number = 0;
  for (const char* bytes :
       {"", "Recent", "[[[\n=\n\\x", "\xff\xfe\1binary", "[Recent]\n", "[Recent]\n1=\n",
        "[Recent]\n1=/a/jazz.MCS\n", "[Recent]\n1=x /a/jazz.MCS\n", "[Recent]\n1=3\n",
        "[Recent]\n1=-1 /a/jazz.MCS\n", "[Recent]\n1=32768 /a/jazz.MCS\n",
        "[Recent]\n1=99999999999999999999 /a/jazz.MCS\n", "[Recent]\n1=3 jazz.MCS\n",
        "[Recent]\n1=3 /a/jazz.txt\n", "[Recent]\n1=3 /a/jazz%00.MCS\n", "[Recent]\n1=3, 4, 5\n",
        "[Recent]\n9=3 /a/jazz.MCS\n0=3 /a/jazz.MCS\n", "[Recent]\n1=@Rect(1 2 3 4)\n"}) {
    SCOPED_TRACE(bytes);
    // Another name each time: the toolkit remembers settings files by name.
    const std::string name = "damaged" + std::to_string(++number) + ".ini";
    writeFile(folder_.path(name), bytes);
    RecentCollections recents(settings(name.c_str()));
    EXPECT_EQ(recents.all(), List());
    recents.opened("/a/new.MCS", 1);
    EXPECT_EQ(recents.all(), (List{{"/a/new.MCS", 1}}));
  }
}

TEST_F(Recents, TakeWhatIsWholeAmongWhatIsDamaged) {
  writeFile(folder_.path("windows.ini"),
            "[Recent]\n1=3\n3=4 /a/jazz.MCS\n5=9 /a/jazz.MCS\n8=2 /a/shelf.BCS\n");
  EXPECT_EQ(RecentCollections(settings()).all(), (List{{"/a/jazz.MCS", 4}, {"/a/shelf.BCS", 2}}));
}

TEST_F(Recents, ShareTheirFileWithOtherSettings) {
  QSettings(settings(), QSettings::IniFormat).setValue("frmBegin2", "1 2 3 4");
  RecentCollections(settings()).opened("/a/jazz.MCS", 3);
  EXPECT_EQ(QSettings(settings(), QSettings::IniFormat).value("frmBegin2").toString(), "1 2 3 4");
}

TEST_F(Recents, LastAsLongAsTheProgramWhereNothingCanBeWritten) {
  QUILLBOX_NEEDS(permissions);
  std::filesystem::create_directory(folder_.path("locked"));
  std::filesystem::permissions(folder_.path("locked"), std::filesystem::perms::none);
  const OrdinaryUser user(folder_);
  RecentCollections recents(settings("locked/windows.ini"));
  EXPECT_EQ(recents.all(), List());
  recents.opened("/a/jazz.MCS", 3);
  EXPECT_EQ(recents.all(), (List{{"/a/jazz.MCS", 3}}));
}

TEST_F(Recents, WriteNothingWhenTheSameCollectionIsOpenedAgain) {
  RecentCollections(settings()).opened("/a/jazz.MCS", 3);
  std::filesystem::remove(folder_.path("windows.ini"));
  writeFile(folder_.path("windows.ini"), "[Recent]\n1=3 /a/jazz.MCS\n; a remark\n");
  {
    RecentCollections recents(settings());
    recents.opened("/a/jazz.MCS", 3);
    recents.left("/a/jazz.MCS", 3);
  }
  EXPECT_NE(readFile(folder_.path("windows.ini")).find("a remark"), std::string::npos);
}

}  // namespace
}  // namespace quillbox::test
