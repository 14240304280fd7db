#include "forms/kept_texts.h"

#include <QFileInfo>
#include <filesystem>

#include "records/app_state.h"
#include "support/form_fixture.h"
#include "support/machine.h"
#include "support/test_folder.h"

namespace quillbox::test {
namespace {

namespace fs = std::filesystem;

class KeptTextsTest : public testing::Test {
 protected:
  KeptTexts kept(const std::string& collection = "jazz.MCS") {
    return KeptTexts(QString::fromStdString(folder_.path("state/typed")), folder_.path(collection));
  }

  static KeptText text(const char* artist, int item = 3) {
    KeptText text;
    text.item = item;
    text.stored = QByteArray("\0\xffstored", 8);
    text.inputs = {{QStringLiteral("txtArtist"), QString::fromUtf8(artist)}};
    text.list = {QStringLiteral("Song"), QString()};
    return text;
  }

  std::vector<std::string> files() {
    std::vector<std::string> files;
    if (!fs::exists(folder_.path("state"))) return files;
    for (const auto& entry : fs::recursive_directory_iterator(folder_.path("state")))
      if (entry.is_regular_file()) files.push_back(entry.path().string());
    return files;
  }

  TestFolder folder_;
};

TEST_F(KeptTextsTest, OutlastTheProgram) {
  kept().leave(text("D\u00f6rte"));
  const auto newest = kept().newest();
  ASSERT_TRUE(newest);
  EXPECT_TRUE(newest->isSame(text("D\u00f6rte")));
  EXPECT_FALSE(newest->isTold);
}

TEST_F(KeptTextsTest, OfTheFormIsTheNewestWhenTheProgramWasKilled) {
  KeptTexts first = kept();
  first.leave(text("Left", 1));
  first.setOnForm(text("Typed", 2));
  EXPECT_TRUE(kept().newest()->isSame(text("Typed", 2)));
  first.setOnForm(std::nullopt);  // written, or changed back
  EXPECT_TRUE(kept().newest()->isSame(text("Left", 1)));
}

TEST_F(KeptTextsTest, AreForgottenWithTheirFile) {
  KeptTexts first = kept();
  first.leave(text("One"));
  first.leave(text("Two"));
  first.forget(text("Two"));
  EXPECT_TRUE(kept().newest()->isSame(text("One")));
  first.forget(text("One"));
  EXPECT_FALSE(kept().newest());
  EXPECT_TRUE(files().empty());
}

TEST_F(KeptTextsTest, AreTenAtMostAndTheNewestStay) {
  for (int number = 1; number <= 14; ++number)
    kept().leave(text(std::to_string(number).c_str(), number));
  KeptTexts all = kept();
  all.setOnForm(text("On the form", 15));
  KeptTexts read = kept();
  int count = 0;
  for (auto newest = read.newest(); newest; newest = read.newest(), ++count) read.forget(*newest);
  EXPECT_EQ(count, 10);
}

TEST_F(KeptTextsTest, AreKeptOnce) {
  KeptTexts first = kept();
  first.leave(text("One"));
  first.leave(text("Two"));
  first.leave(text("One"));
  EXPECT_TRUE(first.newest()->isSame(text("One")));
  first.forget(text("One"));
  EXPECT_TRUE(first.newest()->isSame(text("Two")));
  first.forget(text("Two"));
  EXPECT_FALSE(first.newest());
}

TEST_F(KeptTextsTest, AreTheirOwnersAlone) {
  QUILLBOX_NEEDS(permissions);
  kept().leave(text("One"));
  ASSERT_EQ(files().size(), 1U);
  EXPECT_EQ(fs::status(files().front()).permissions(),
            fs::perms::owner_read | fs::perms::owner_write);
  EXPECT_EQ(fs::status(folder_.path("state/typed")).permissions(), fs::perms::owner_all);
}

TEST_F(KeptTextsTest, OfCollectionsOfOneNameInTwoFoldersAreApart) {
  fs::create_directories(folder_.path("a"));
  fs::create_directories(folder_.path("b"));
  kept("a/jazz.MCS").leave(text("A"));
  EXPECT_FALSE(kept("b/jazz.MCS").newest());
  kept("b/jazz.MCS").leave(text("B"));
  EXPECT_TRUE(kept("a/jazz.MCS").newest()->isSame(text("A")));
  EXPECT_TRUE(kept("a/../b/jazz.MCS").newest()->isSame(text("B")));
}

TEST_F(KeptTextsTest, AreFoundThroughALink) {
  QUILLBOX_NEEDS(links);
  fs::create_directories(folder_.path("a"));
  writeFile(folder_.path("a/jazz.MCS"), "");
  fs::create_symlink(folder_.path("a"), folder_.path("link"));
  kept("a/jazz.MCS").leave(text("A"));
  EXPECT_TRUE(kept("link/jazz.MCS").newest());
}

TEST_F(KeptTextsTest, AreReadFromTheFileOfAnEarlierVersion) {
  kept().leave(text("Replaced"));
  QFile file(QString::fromStdString(files().front()));
  const QString path =
      QFileInfo(QString::fromStdString(folder_.path("jazz.MCS"))).absoluteFilePath();
  const QByteArray earlier = R"({"collection": "%1", "texts": [{"item": 3, "stored": "AP9zdG9yZWQ=",
                                 "inputs": {"txtArtist": "Monk"}, "list": ["Song", ""],
                                 "told": true}]})";
  ASSERT_TRUE(file.open(QIODevice::WriteOnly));
  file.write(QString::fromUtf8(earlier).arg(path).toUtf8());
  file.close();
  const auto newest = kept().newest();
  ASSERT_TRUE(newest);
  EXPECT_TRUE(newest->isSame(text("Monk")));
  EXPECT_TRUE(newest->isTold);
}

TEST_F(KeptTextsTest, AreReadForWhatTheyAreWorth) {
  kept().leave(text("One"));
  const std::string file = files().front();
  const std::string whole = readFile(file);
  for (const std::string& damaged :
       {std::string(), std::string("{"), std::string("[1,2]"), std::string("\xff\0\1", 3),
        whole.substr(0, whole.size() / 2), std::string("{\"collection\":3,\"texts\":7}"),
        std::string(5 << 20, ' ')}) {
    SCOPED_TRACE(damaged.substr(0, 40));
    writeFile(file, damaged);
    EXPECT_FALSE(kept().newest());
    kept().leave(text("Two"));  // and the next one is kept as usual
    EXPECT_TRUE(kept().newest()->isSame(text("Two")));
  }
  std::string strange = whole;
  strange.replace(strange.find("\"item\": 3"), 9, "\"item\": []");
  writeFile(file, strange);
  EXPECT_EQ(kept().newest()->item, 0);
}

TEST_F(KeptTextsTest, OfAnotherCollectionUnderTheSameNameAreNot) {
  kept().leave(text("One"));
  std::string other = readFile(files().front());
  const auto name = other.find("jazz.MCS");
  other.replace(name, 4, "rock");
  writeFile(files().front(), other);
  EXPECT_FALSE(kept().newest());
}

TEST_F(KeptTextsTest, DoWithoutAFolderToWriteTo) {
  QUILLBOX_NEEDS(permissions);
  fs::create_directory(folder_.path("state"));
  fs::permissions(folder_.path("state"), fs::perms::none);
  {
    const OrdinaryUser user(folder_);
    KeptTexts texts = kept();
    texts.leave(text("One"));
    EXPECT_TRUE(texts.newest()->isSame(text("One")));
  }
  fs::permissions(folder_.path("state"), fs::perms::owner_all);
  EXPECT_TRUE(files().empty());
}

TEST_F(KeptTextsTest, AreInMemoryAloneWithoutAFolder) {
  KeptTexts texts(QString(), folder_.path("jazz.MCS"));
  texts.leave(text("One"));
  EXPECT_TRUE(texts.newest());
}

#ifdef Q_OS_WIN
TEST_F(KeptTextsTest, AreBelowTheUsersApplicationData) {
  const QString data = QDir::fromNativeSeparators(qEnvironmentVariable("LOCALAPPDATA"));
  ASSERT_FALSE(data.isEmpty());
  EXPECT_EQ(KeptTexts::userFolder(), data + QStringLiteral("/quillbox/typed"));
}
#else
TEST_F(KeptTextsTest, AreBelowTheUsersStateFolder) {
  const QByteArray before = qgetenv("XDG_STATE_HOME");
  qputenv("XDG_STATE_HOME", "/elsewhere");
  EXPECT_EQ(KeptTexts::userFolder(), QStringLiteral("/elsewhere/quillbox/typed"));
  for (const char* useless : {"", "relative"}) {
    qputenv("XDG_STATE_HOME", useless);
    EXPECT_TRUE(KeptTexts::userFolder().endsWith(QStringLiteral("/.local/state/quillbox/typed")));
  }
  before.isNull() ? qunsetenv("XDG_STATE_HOME") : qputenv("XDG_STATE_HOME", before);
}
#endif

}  // namespace
}  // namespace quillbox::test
