// What the panel shows of media files.

#include "panel/preview_view.h"

#include <QBuffer>
#include <QImage>
#include <QLabel>
#include <QTabWidget>
#include <QTreeView>
#include <filesystem>

#include "support/form_fixture.h"
#include "text/padding.h"

namespace quillbox::test {
namespace {

constexpr QSize kRoom(400, 300);

class LookAtFile : public testing::Test {
 protected:
  FileLook look(const std::string& name) {
    return lookAtFile(QString::fromStdString(folder_.path(name)), kRoom);
  }
  void put(const std::string& name, const std::string& bytes) {
    writeFile(folder_.path(name), bytes);
  }
  void putPicture(const std::string& name, int width, int height) {
    QImage image(width, height, QImage::Format_RGB32);
    image.fill(Qt::darkGreen);
    EXPECT_TRUE(image.save(QString::fromStdString(folder_.path(name))));
  }

  TestFolder folder_;
};

TEST_F(LookAtFile, ShowsAPicture) {
  putPicture("small.png", 20, 10);
  const FileLook found = look("small.png");
  EXPECT_EQ(found.picture.size(), QSize(20, 10));
  EXPECT_TRUE(found.says.startsWith(QStringLiteral("20 x 10, "))) << found.says.toStdString();
  EXPECT_TRUE(found.isThere);
}

TEST_F(LookAtFile, ReadsALargePictureNoLargerThanItIsShown) {
  putPicture("large.jpg", 2000, 1000);
  const FileLook found = look("large.jpg");
  EXPECT_EQ(found.picture.size(), QSize(400, 200));
  EXPECT_TRUE(found.says.startsWith(QStringLiteral("2000 x 1000, ")));
}

TEST_F(LookAtFile, SaysHowLongASoundPlays) {
  using namespace std::string_literals;
  const std::string second(8'000, '\x80');  // at 8,000 bytes a second
  put("sound.wav",
      "RIFF\x64\x1F\0\0WAVEfmt \x10\0\0\0\1\0\1\0\x40\x1F\0\0\x40\x1F\0\0\1\0\x08\0"
      "data\x40\x1F\0\0"s +
          second);
  EXPECT_TRUE(look("sound.wav").says.startsWith(QStringLiteral("0:01, ")))
      << look("sound.wav").says.toStdString();
}

/// A picture of a few bytes that claims to be 30,000 pixels wide and high.
TEST_F(LookAtFile, DoesNotDecodeWhatIsTooLarge) {
  put("huge.ppm", "P6\n30000 30000\n255\n");
  const FileLook found = look("huge.ppm");
  EXPECT_TRUE(found.picture.isNull());
  EXPECT_TRUE(found.says.endsWith(QStringLiteral(": too large to show")))
      << found.says.toStdString();
  EXPECT_TRUE(found.isThere);
}

TEST_F(LookAtFile, IsNotHurtByBrokenFiles) {
  putPicture("whole.png", 200, 100);
  const std::string whole = readFile(folder_.path("whole.png"));
  for (std::size_t size = 0; size < whole.size(); size += 7) {
    put("cut.png", whole.substr(0, size));
    EXPECT_TRUE(look("cut.png").isThere);
  }
  put("text.jpg", "Dear Ann");
  EXPECT_TRUE(look("text.jpg").picture.isNull());
}

TEST_F(LookAtFile, SaysWhatIsNotThere) {
  const FileLook found = look("gone.png");
  EXPECT_EQ(found.says.toStdString(), "Not there any more");
  EXPECT_FALSE(found.isThere);
  std::filesystem::create_directory(folder_.path("folder"));
  EXPECT_EQ(look("folder").says.toStdString(), "This is no file");
}

class Preview : public EditorTest {
 protected:
  Preview() : EditorTest(kGraphics) {}

  std::string fileItem(const std::string& name) {
    std::string bytes = item(name);
    const auto record = std::as_writable_bytes(std::span(bytes));
    setText(field("FilePath"), record, folder_.path());
    return bytes;
  }
  void openTab(const char* caption) {
    QTest::keyClick(&form(), Qt::Key_F9);
    auto& tabs = control<QTabWidget>("Panel");
    for (int tab = 0; tab < tabs.count(); ++tab)
      if (tabs.tabText(tab) == QLatin1String(caption)) tabs.setCurrentIndex(tab);
    EXPECT_EQ(tabs.tabText(tabs.currentIndex()).toStdString(), caption);
  }
  bool isSaid(const std::string& text) {
    return waitFor([&] { return label("lblSays").starts_with(text); });
  }
  void putPicture(const char* name, QSize size = {20, 10}) {
    QImage image(size, QImage::Format_RGB32);
    image.fill(Qt::darkGreen);
    EXPECT_TRUE(image.save(QString::fromStdString(path(name))));
  }
  QPixmap picture() { return control<QLabel>("lblPicture").pixmap(Qt::ReturnByValue); }
};

TEST_F(Preview, FollowsTheForm) {
  putPicture("a.png");
  open({fileItem("a.png"), fileItem("b.png"), item("c")});
  openTab("Preview");
  EXPECT_TRUE(isSaid("20 x 10, ")) << label("lblSays");
  EXPECT_FALSE(control<QLabel>("lblPicture").pixmap(Qt::ReturnByValue).isNull());
  press("cmdOpenMediaFile");
  EXPECT_EQ(desktop_.opened, std::vector<std::string>{path("a.png")});
  press(kind().buttons.next);
  EXPECT_TRUE(isSaid("Not there any more"));
  EXPECT_TRUE(control<QLabel>("lblPicture").pixmap(Qt::ReturnByValue).isNull());
  EXPECT_FALSE(button("cmdOpenMediaFile").isEnabled());
  press(kind().buttons.next);
  EXPECT_TRUE(isSaid("The item does not say where its file lies"));
}

/// At 200 percent, too: a pixel of the picture is one of the screen, or less.
TEST_F(Preview, ShowsAPictureWholeAndAsSharpAsTheScreenAllows) {
  putPicture("a.png");
  putPicture("b.png", {3000, 1500});
  open({fileItem("a.png"), fileItem("b.png")});
  openTab("Preview");
  EXPECT_TRUE(isSaid("20 x 10, "));
  const double ratio = form().devicePixelRatioF();
  EXPECT_EQ(picture().size(), QSize(20, 10));
  EXPECT_EQ(picture().deviceIndependentSize(), QSizeF(20, 10) / ratio);
  press(kind().buttons.next);
  EXPECT_TRUE(isSaid("3000 x 1500, "));
  const QSizeF room = control<QLabel>("lblPicture").size();
  const QSizeF shown = picture().deviceIndependentSize();
  EXPECT_NEAR(shown.width(), std::min(room.width(), 2 * room.height()), 1);
  EXPECT_NEAR(shown.height(), shown.width() / 2, 1);
}

TEST_F(Preview, ItsButtonSaysWhatItDoes) {
  open({fileItem("a.png")});
  openTab("Preview");
  EXPECT_EQ(button("cmdOpenMediaFile").text(), "Open");
  EXPECT_EQ(button("cmdOpenMediaFile").toolTip(), "Open the file in the program for such files");
  EXPECT_EQ(control<QLabel>("lblPicture").accessibleName(), "Picture");
  EXPECT_TRUE(isSaid("Not there any more"));
  EXPECT_EQ(control<QLabel>("lblFile").accessibleName().toStdString(), path("a.png"));
}

TEST_F(Preview, SaysWhenNoProgramOpensTheFile) {
  putPicture("a.png");
  open({fileItem("a.png")});
  openTab("Preview");
  EXPECT_TRUE(isSaid("20 x 10, "));
  desktop_.canOpen = false;
  press("cmdOpenMediaFile");
  EXPECT_EQ(label("lblSays"), "No program was found that opens such files");
}

TEST_F(Preview, ListsFilesThatAreGone) {
  putPicture("a.png");
  open({fileItem("a.png"), fileItem("b.png"), fileItem("DELETED")});
  openTab("Missing Files");
  auto& tree = *control<QTabWidget>("Panel").currentWidget()->findChild<QTreeView*>();
  ASSERT_TRUE(waitFor([&] { return tree.model()->rowCount() == 2; }));
  const QAbstractItemModel& rows = *tree.model();
  EXPECT_EQ(rows.data(rows.index(1, 0)).toString().toStdString(), "2");
  EXPECT_EQ(rows.data(rows.index(1, 1)).toString().toStdString(), path("b.png"));
  tree.setFocus();
  tree.setCurrentIndex(rows.index(1, 0));
  QTest::keyClick(&tree, Qt::Key_Return);
  EXPECT_EQ(state_->CurRec, 2);
}

}  // namespace
}  // namespace quillbox::test
