#include "platform/qt/print_layout.h"

#include <gtest/gtest.h>

namespace quillbox::test {
namespace {

using Sheets = std::vector<QStringList>;

TEST(PrintLayout, PutsTheLinesOfATextOnSheets) {
  const struct {
    const char* text;
    int columns;
    int rows;
    Sheets sheets;
  } cases[] = {
      {"", 5, 3, {{}}},
      {"a", 5, 3, {{"a"}}},
      {"a\r\n", 5, 3, {{"a"}}},
      {"a\n", 5, 3, {{"a"}}},
      {"a\r\nb\r\n", 5, 3, {{"a", "b"}}},
      {"a\nb", 5, 3, {{"a", "b"}}},
      {"\r\n", 5, 3, {{""}}},
      {"\n\n", 5, 3, {{"", ""}}},
      {"a\r\n\r\nb\r\n", 5, 3, {{"a", "", "b"}}},
      {"a\rb\r\n", 5, 3, {{"a\rb"}}},
      {"  a  \r\n", 5, 3, {{"  a  "}}},
      // lines that are too long
      {"abcde\r\n", 5, 3, {{"abcde"}}},
      {"abcdef\r\n", 5, 3, {{"abcde", "f"}}},
      {"abcdefghij\r\n", 5, 3, {{"abcde", "fghij"}}},
      {"abcdefghijk\r\nl\r\n", 5, 4, {{"abcde", "fghij", "k", "l"}}},
      {"a b c d\r\n", 3, 4, {{"a b", " c ", "d"}}},
      {"abc", 1, 3, {{"a", "b", "c"}}},
      // more lines than a sheet has
      {"a\r\nb\r\nc\r\n", 5, 3, {{"a", "b", "c"}}},
      {"a\r\nb\r\nc\r\nd\r\n", 5, 3, {{"a", "b", "c"}, {"d"}}},
      {"a\r\nb\r\nc\r\n\r\n", 5, 3, {{"a", "b", "c"}, {""}}},
      {"a\r\nb\r\n", 5, 1, {{"a"}, {"b"}}},
      {"abcdefg\r\nh\r\n", 3, 2, {{"abc", "def"}, {"g", "h"}}},
      {"abcdefg", 1, 1, {{"a"}, {"b"}, {"c"}, {"d"}, {"e"}, {"f"}, {"g"}}},
  };
  for (const auto& each : cases)
    EXPECT_EQ(sheetsOf(QString::fromUtf8(each.text), each.columns, each.rows), each.sheets)
        << testing::PrintToString(std::string(each.text)) << " on " << each.columns << " columns, "
        << each.rows << " rows";
}

TEST(PrintLayout, CountsCharactersNotBytes) {
  EXPECT_EQ(sheetsOf(QString::fromUtf8("é€“ßx"), 4, 3), (Sheets{{"é€“ß", "x"}}));
}

TEST(PrintLayout, LosesNothing) {
  QString text;
  QString plain;
  for (int line = 0; line < 40; ++line) {
    const QString words = QString(line * 7 % 53, QChar(u'a' + line % 26));
    text += words + QStringLiteral("\r\n");
    plain += words;
  }
  for (const int columns : {1, 2, 7, 52, 53, 1000})
    for (const int rows : {1, 2, 39, 40, 41, 5000}) {
      const Sheets sheets = sheetsOf(text, columns, rows);
      QString joined;
      for (const QStringList& sheet : sheets) {
        EXPECT_FALSE(sheet.isEmpty());
        EXPECT_LE(sheet.size(), rows);
        for (const QString& line : sheet) EXPECT_LE(line.size(), columns);
        joined += sheet.join(QString());
      }
      EXPECT_EQ(joined, plain) << columns << " columns, " << rows << " rows";
      for (std::size_t full = 0; full + 1 < sheets.size(); ++full)
        EXPECT_EQ(sheets[full].size(), rows);
    }
}

}  // namespace
}  // namespace quillbox::test
