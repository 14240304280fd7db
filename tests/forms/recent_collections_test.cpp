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
    recents.opened("C:/a/jazz.MCS", 3);
    recents.opened("C:/a/shelf.bcs", 55);
  }
  RecentCollections recents(settings());
  EXPECT_EQ(recents.all(), (List{{"C:/a/shelf.bcs", 55}, {"C:/a/jazz.MCS", 3}}));
  recents.opened("C:/a/jazz.MCS", 4);
  EXPECT_EQ(recents.all(), (List{{"C:/a/jazz.MCS", 4}, {"C:/a/shelf.bcs", 55}}));
}

TEST_F(Recents, AreEightAtMost) {
  RecentCollections recents(settings());
  for (int i = 1; i <= 9; ++i) recents.opened("C:/a/" + std::to_string(i) + ".MCS", i);
  const List all = recents.all();
  ASSERT_EQ(all.size(), 8U);
  EXPECT_EQ(all.front(), (RecentCollection{"C:/a/9.MCS", 9}));
  EXPECT_EQ(all.back(), (RecentCollection{"C:/a/2.MCS", 2}));
}

TEST_F(Recents, KeepTheirOrderAndLearnTheirCountWhenOneIsLeft) {
  RecentCollections recents(settings());
  recents.opened("C:/a/jazz.MCS", 3);
  recents.opened("C:/a/shelf.BCS", 55);
  recents.left("C:/a/jazz.MCS", 4);
  EXPECT_EQ(recents.all(), (List{{"C:/a/shelf.BCS", 55}, {"C:/a/jazz.MCS", 4}}));
  recents.left("C:/a/other.MCS", 9);
  EXPECT_EQ(recents.all().size(), 2U) << "what was taken off does not come back";
}

TEST_F(Recents, CanBeTakenOff) {
  RecentCollections recents(settings());
  recents.opened("C:/a/jazz.MCS", 3);
  recents.opened("C:/a/shelf.BCS", 55);
  recents.remove("C:/a/shelf.BCS");
  EXPECT_EQ(recents.all(), (List{{"C:/a/jazz.MCS", 3}}));
  recents.remove("C:/a/jazz.MCS");
  EXPECT_EQ(recents.all(), List());
}

TEST_F(Recents, KeepPathsToTheByte) {
  const std::string paths[] = {"C:/a/my lists/j\xc3\xa4zz, \"old\" = 1%2.MCS",
                               "C:/a/\xff\xfe\x80.MCS",
                               "C:/a/back\\slash;#.MCS",
                               "C:/a/ blanks .MCS",
                               "C:/a/new\nline.MCS",
                               "C:/a/\xe2\x82\xac@Invalid().MCS",
#ifndef _WIN32
                               "/a/jazz.MCS",
#endif
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
  for (const std::string path : {"", "jazz.MCS", "../jazz.MCS", "C:/a/letter.txt", "C:/a/jazz.bak"})
    recents.opened(path, 1);
  EXPECT_EQ(recents.all(), List());
}

TEST_F(Recents, IgnoreWhatIsDamaged) {
  int number = 0;
  for (const char* bytes :
       {"", "Recent", "[[[\n=\n\\x", "\xff\xfe\1binary", "[Recent]\n", "[Recent]\n1=\n",
        "[Recent]\n1=C:/a/jazz.MCS\n", "[Recent]\n1=x C:/a/jazz.MCS\n", "[Recent]\n1=3\n",
        "[Recent]\n1=-1 C:/a/jazz.MCS\n", "[Recent]\n1=32768 C:/a/jazz.MCS\n",
        "[Recent]\n1=99999999999999999999 C:/a/jazz.MCS\n", "[Recent]\n1=3 jazz.MCS\n",
        "[Recent]\n1=3 C:/a/jazz.txt\n", "[Recent]\n1=3 C:/a/jazz%00.MCS\n",
        "[Recent]\n1=3, 4, 5\n", "[Recent]\n9=3 C:/a/jazz.MCS\n0=3 C:/a/jazz.MCS\n",
        "[Recent]\n1=@Rect(1 2 3 4)\n"}) {
    SCOPED_TRACE(bytes);
    // A different name each time: the toolkit caches settings files by name.
    const std::string name = "damaged" + std::to_string(++number) + ".ini";
    writeFile(folder_.path(name), bytes);
    RecentCollections recents(settings(name.c_str()));
    EXPECT_EQ(recents.all(), List());
    recents.opened("C:/a/new.MCS", 1);
    EXPECT_EQ(recents.all(), (List{{"C:/a/new.MCS", 1}}));
  }
}

TEST_F(Recents, TakeWhatIsWholeAmongWhatIsDamaged) {
  writeFile(folder_.path("windows.ini"),
            "[Recent]\n1=3\n3=4 C:/a/jazz.MCS\n5=9 C:/a/jazz.MCS\n8=2 C:/a/shelf.BCS\n");
  EXPECT_EQ(RecentCollections(settings()).all(),
            (List{{"C:/a/jazz.MCS", 4}, {"C:/a/shelf.BCS", 2}}));
}

TEST_F(Recents, ShareTheirFileWithOtherSettings) {
  QSettings(settings(), QSettings::IniFormat).setValue("frmBegin2", "1 2 3 4");
  RecentCollections(settings()).opened("C:/a/jazz.MCS", 3);
  EXPECT_EQ(QSettings(settings(), QSettings::IniFormat).value("frmBegin2").toString(), "1 2 3 4");
}

TEST_F(Recents, LastAsLongAsTheProgramWhereNothingCanBeWritten) {
  QUILLBOX_NEEDS(permissions);
  std::filesystem::create_directory(folder_.path("locked"));
  std::filesystem::permissions(folder_.path("locked"), std::filesystem::perms::none);
  const OrdinaryUser user(folder_);
  RecentCollections recents(settings("locked/windows.ini"));
  EXPECT_EQ(recents.all(), List());
  recents.opened("C:/a/jazz.MCS", 3);
  EXPECT_EQ(recents.all(), (List{{"C:/a/jazz.MCS", 3}}));
}

TEST_F(Recents, WriteNothingWhenTheSameCollectionIsOpenedAgain) {
  RecentCollections(settings()).opened("C:/a/jazz.MCS", 3);
  std::filesystem::remove(folder_.path("windows.ini"));
  writeFile(folder_.path("windows.ini"), "[Recent]\n1=3 C:/a/jazz.MCS\n; a remark\n");
  {
    RecentCollections recents(settings());
    recents.opened("C:/a/jazz.MCS", 3);
    recents.left("C:/a/jazz.MCS", 3);
  }
  EXPECT_NE(readFile(folder_.path("windows.ini")).find("a remark"), std::string::npos);
}

}  // namespace
}  // namespace quillbox::test
