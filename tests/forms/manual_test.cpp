// The manual in the program and in the source tree.

#include <gtest/gtest.h>

#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QRegularExpression>
#include <QSet>

namespace quillbox::test {
namespace {

const QString kManual = QStringLiteral(QUILLBOX_SOURCE_DIR "/docs/manual");

QString contentsOf(const QString& path) {
  QFile file(path);
  EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << path.toStdString();
  return QString::fromUtf8(file.readAll());
}

QStringList pages() { return QDir(kManual).entryList({QStringLiteral("*.md")}); }

QStringList all(const QString& text, const char* pattern) {
  QStringList found;
  auto matches = QRegularExpression(QString::fromUtf8(pattern)).globalMatch(text);
  while (matches.hasNext()) found << matches.next().captured(1);
  return found;
}

QStringList linksOf(const QString& page) {
  return all(contentsOf(kManual + '/' + page), R"(\]\(([^)]+)\))");
}

/// The program's texts, without the marks of access keys.
QString sources() {
  QString texts;
  QDirIterator files(QStringLiteral(QUILLBOX_SOURCE_DIR "/src"), {"*.cpp", "*.h"}, QDir::Files,
                     QDirIterator::Subdirectories);
  while (files.hasNext()) texts += contentsOf(files.next());
  return texts.remove('&');
}

TEST(Manual, IsInTheProgramWordForWord) {
  ASSERT_FALSE(pages().isEmpty());
  for (const QString& page : pages())
    EXPECT_EQ(contentsOf(":/docs/manual/" + page), contentsOf(kManual + '/' + page))
        << page.toStdString();
}

TEST(Manual, LinksToPagesAndPicturesThatExist) {
  for (const QString& page : pages())
    for (const QString& link : linksOf(page)) {
      EXPECT_TRUE(QFile::exists(kManual + '/' + link))
          << page.toStdString() << ": " << link.toStdString();
      EXPECT_TRUE(QFile::exists(QDir::cleanPath(":/docs/manual/" + link)))
          << page.toStdString() << " in the program: " << link.toStdString();
    }
}

TEST(Manual, ShowsEveryPictureInDarkColoursToo) {
  for (const QString& page : pages())
    for (QString link : linksOf(page))
      if (link.endsWith(".png")) {
        link.replace("forms/", "forms/dark/");
        EXPECT_TRUE(QFile::exists(QDir::cleanPath(":/docs/manual/" + link))) << link.toStdString();
      }
}

TEST(Manual, IsReachedFromItsFirstPage) {
  QSet<QString> reached = {"index.md"};
  for (QStringList open = {"index.md"}; !open.isEmpty();)
    for (const QString& link : linksOf(open.takeFirst()))
      if (link.endsWith(".md") && !reached.contains(link)) {
        reached << link;
        open << link;
      }
  for (const QString& page : pages()) EXPECT_TRUE(reached.contains(page)) << page.toStdString();
}

TEST(Manual, CallsEverythingWhatTheScreenCallsIt) {
  const QString texts = sources();
  for (const QString& page : pages())
    for (const QString& term : all(contentsOf(kManual + '/' + page), R"(\*\*([^*]+)\*\*)"))
      EXPECT_TRUE(texts.contains('"' + term)) << page.toStdString() << ": " << term.toStdString();
}

TEST(Manual, BeginsEachPageWithItsTitle) {
  for (const QString& page : pages())
    EXPECT_TRUE(contentsOf(kManual + '/' + page).startsWith("# ")) << page.toStdString();
}

}  // namespace
}  // namespace quillbox::test
