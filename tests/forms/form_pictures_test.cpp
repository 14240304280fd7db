// Pictures of every form with a sample open. If QUILLBOX_PICTURES is set to a folder, they are
// saved there: the manual uses them, and they show every change of a form.

#include <QDir>
#include <QSet>

#include "forms/all_forms.h"

namespace quillbox::test {
namespace {

class FormPictures : public EachForm {
 protected:
  /// The window as it is on screen; saved under that name.
  static QImage picture(QWidget& window, const QString& name) {
    window.activateWindow();  // where others would come first, as on a display
    EXPECT_TRUE(QTest::qWaitForWindowActive(&window));
    const QImage taken = window.grab().toImage().convertToFormat(QImage::Format_RGB888);
    const QString folder = qEnvironmentVariable("QUILLBOX_PICTURES");
    if (!folder.isEmpty()) {
      const QString file = folder + '/' + name + ".png";
      EXPECT_TRUE(QDir().mkpath(QFileInfo(file).path()));
      EXPECT_TRUE(taken.save(file)) << file.toStdString();
    }
    return taken;
  }

  static int colours(const QImage& picture) {
    QSet<QRgb> all;
    for (int y = 0; y < picture.height(); ++y)
      for (int x = 0; x < picture.width(); ++x) all.insert(picture.pixel(x, y));
    return static_cast<int>(all.size());
  }
};

constexpr Look kLight{1, false, Look::Content::sample};
constexpr Look kDark{1, true, Look::Content::sample};

TEST_P(FormPictures, AreTakenInLightAndDark) {
  const QString name = QString::fromUtf8(GetParam().picture);
  const QImage light = picture(EachForm::open(kLight), name);
  const QImage dark = picture(EachForm::open(kDark), "dark/" + name);
  // Letters and lines are drawn in many shades; an unpainted area has one.
  constexpr int fewest = 16;
  EXPECT_GT(colours(light), fewest);
  EXPECT_GT(colours(dark), fewest);
  EXPECT_EQ(light.size(), dark.size());
  EXPECT_NE(light, dark);
}

INSTANTIATE_TEST_SUITE_P(Each, FormPictures, testing::ValuesIn(kAllForms), formCaseName);

class NotWrittenPicture : public FormPictures {};

TEST_P(NotWrittenPicture, ShowsTheMark) {
  for (const auto& [look, folder] : {std::pair(kLight, ""), std::pair(kDark, "dark/")}) {
    QWidget& window = EachForm::open(look);
    const QImage before = picture(window, QString(folder) + "music");
    type("txtAlbum", "Another title");
    EXPECT_NE(picture(window, QString(folder) + "not-written"), before);
  }
}

INSTANTIATE_TEST_SUITE_P(Music, NotWrittenPicture,
                         testing::Values(FormCase{"Music", "music", "MCS"}), formCaseName);

}  // namespace
}  // namespace quillbox::test
