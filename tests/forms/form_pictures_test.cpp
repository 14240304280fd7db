// Pictures of every form with a sample open. If QUILLBOX_PICTURES is set to a folder, they are
// saved there; otherwise they must be those of docs/forms, which the manual uses.

#include <QCryptographicHash>
#include <QDir>
#include <QGuiApplication>
#include <QPainter>
#include <QPrinterInfo>
#include <QSet>
#include <cstdlib>

#include "forms/all_forms.h"

namespace quillbox::test {
namespace {

/// Whether letters are drawn here as where the pictures were taken: other versions of the toolkit
/// and of its fonts draw them a little differently.
bool drawsTheSameLetters() {
  if (QGuiApplication::platformName() != QLatin1String("offscreen") ||
      qApp->devicePixelRatio() != 1)
    return false;
  QImage letters(400, 40, QImage::Format_RGB888);
  letters.fill(Qt::white);
  QPainter painter(&letters);
  painter.drawText(5, 25, QStringLiteral("The quick brown fox jumps over the lazy dog 0123456789"));
  painter.end();
  const auto bytes = QByteArrayView(letters.constBits(), letters.sizeInBytes());
  return QCryptographicHash::hash(bytes.toByteArray(), QCryptographicHash::Md5).toHex() ==
         "7dd81d5d8561d353fbc2f623b89f6317";
}

bool alike(QRgb one, QRgb other) {
  constexpr int kRounding = 4;
  return std::abs(qRed(one) - qRed(other)) <= kRounding &&
         std::abs(qGreen(one) - qGreen(other)) <= kRounding &&
         std::abs(qBlue(one) - qBlue(other)) <= kRounding;
}

/// Where two pictures of the same size differ.
QRect difference(const QImage& one, const QImage& other) {
  QRect found;
  for (int y = 0; y < one.height(); ++y)
    for (int x = 0; x < one.width(); ++x)
      if (!alike(one.pixel(x, y), other.pixel(x, y))) found |= QRect(x, y, 1, 1);
  return found;
}

class FormPictures : public EachForm {
 protected:
  FormPictures() { QApplication::setCursorFlashTime(0); }  // it does not blink
  ~FormPictures() override { QApplication::setCursorFlashTime(flashTime_); }

  /// The window as it is on screen. It is saved under that name, or compared with the saved one.
  static QImage picture(QWidget& window, const QString& name) {
    window.activateWindow();  // where others would come first, as on a display
    EXPECT_TRUE(QTest::qWaitForWindowActive(&window));
    const QImage taken = window.grab().toImage().convertToFormat(QImage::Format_RGB888);
    const QString folder = qEnvironmentVariable("QUILLBOX_PICTURES");
    if (!folder.isEmpty()) {
      const QString file = folder + '/' + name + ".png";
      EXPECT_TRUE(QDir().mkpath(QFileInfo(file).path()));
      EXPECT_TRUE(taken.save(file)) << file.toStdString();
    } else if (drawsTheSameLetters() && !showsPrinters(name)) {
      expectSaved(taken, name);
    }
    return taken;
  }

  /// Those of this machine.
  static bool showsPrinters(const QString& name) {
    return name.endsWith(QLatin1String("print")) &&
           !QPrinterInfo::availablePrinterNames().isEmpty();
  }

  static void expectSaved(const QImage& taken, const QString& name) {
    const QString file = QStringLiteral(QUILLBOX_SOURCE_DIR "/docs/forms/") + name + ".png";
    const QImage saved = QImage(file).convertToFormat(QImage::Format_RGB888);
    ASSERT_EQ(taken.size(), saved.size()) << file.toStdString();
    const QRect where = difference(taken, saved);
    EXPECT_TRUE(where.isEmpty()) << file.toStdString() << " shows something else from " << where.x()
                                 << ", " << where.y() << " on, " << where.width() << " x "
                                 << where.height() << "; ./run --pictures takes it again";
  }

  static int colours(const QImage& picture) {
    QSet<QRgb> all;
    for (int y = 0; y < picture.height(); ++y)
      for (int x = 0; x < picture.width(); ++x) all.insert(picture.pixel(x, y));
    return static_cast<int>(all.size());
  }

 private:
  int flashTime_ = QApplication::cursorFlashTime();
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
