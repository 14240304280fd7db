#include "opendata/csv_reader.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "opendata/csv_text.h"
#include "support/opendata_support.h"

namespace quillbox::test {
namespace {

using Rows = std::vector<std::vector<std::string>>;

Rows rowsOf(const std::string& text, std::size_t atOnce = 1'000'000) {
  TextSource source(text, atOnce);
  CsvReader reader(source);
  Rows rows;
  std::vector<std::string_view> fields;
  while (reader.next(fields)) rows.emplace_back(fields.begin(), fields.end());
  return rows;
}

std::string whyNot(const std::string& text) {
  return dataErrorOf([&] { rowsOf(text); });
}

TEST(CsvReader, ReadsRecordsOfFields) {
  EXPECT_EQ(rowsOf("a,b\r\n1,\r\n"), (Rows{{"a", "b"}, {"1", ""}}));
}

TEST(CsvReader, TheLastLineNeedNotEnd) {
  EXPECT_EQ(rowsOf("a,b\n1,2"), (Rows{{"a", "b"}, {"1", "2"}}));
  EXPECT_EQ(rowsOf("a,b\n1,"), (Rows{{"a", "b"}, {"1", ""}}));
  EXPECT_EQ(rowsOf("a,b\n1,\"2\""), (Rows{{"a", "b"}, {"1", "2"}}));
}

TEST(CsvReader, TakesLineEndsOfAnyKind) {
  const Rows rows = {{"a", "b"}, {"1", "2"}, {"3", "4"}};
  for (const std::string end : {"\n", "\r", "\r\n"})
    EXPECT_EQ(rowsOf("a,b" + end + "1,2" + end + "3,4" + end), rows);
}

TEST(CsvReader, QuotesKeepSeparatorsQuotesAndLineEnds) {
  EXPECT_EQ(rowsOf("a,b\n\"x,\"\"y\"\"\",\"1\r\n2\n\"\n"),
            (Rows{{"a", "b"}, {"x,\"y\"", "1\r\n2\n"}}));
  EXPECT_EQ(rowsOf("\"\"\n\"\"\"\"\n"), (Rows{{"\""}}));
}

TEST(CsvReader, AQuoteWithinAFieldIsACharacter) {
  EXPECT_EQ(rowsOf("5\" disk,b\n"), (Rows{{"5\" disk", "b"}}));
}

TEST(CsvReader, TakesTheSeparatorThatTheFirstRecordHasMost) {
  EXPECT_EQ(rowsOf("a;b;c,d\n1;2;3,5\n"), (Rows{{"a", "b", "c,d"}, {"1", "2", "3,5"}}));
  EXPECT_EQ(rowsOf("a\tb\n1\t2\n"), (Rows{{"a", "b"}, {"1", "2"}}));
  EXPECT_EQ(rowsOf("\"a;;\",b\n"), (Rows{{"a;;", "b"}}));
}

TEST(CsvReader, ASpreadsheetMayTellTheSeparator) {
  EXPECT_EQ(rowsOf("sep=;\r\na,a;b\r\n"), (Rows{{"a,a", "b"}}));
  EXPECT_EQ(rowsOf("sep=;"), Rows{});
  TextSource source("sep=;\na;b\n");
  CsvReader reader(source);
  std::vector<std::string_view> fields;
  EXPECT_TRUE(reader.next(fields));
  EXPECT_EQ(reader.record(), 2);  // it is a line of its own
}

TEST(CsvReader, AByteOrderMarkIsNoText) {
  EXPECT_EQ(rowsOf("\xEF\xBB\xBF"
                   "a,b\n"),
            (Rows{{"a", "b"}}));
}

TEST(CsvReader, EmptyLinesAreNoRecords) {
  EXPECT_EQ(rowsOf("a,b\n\n1,2\n\r\n\n"), (Rows{{"a", "b"}, {"1", "2"}}));
  EXPECT_EQ(rowsOf(""), Rows{});
}

TEST(CsvReader, CountsRecordsAsASpreadsheetDoes) {
  TextSource source("a\n\n\"x\ny\"\n3\n");
  CsvReader reader(source);
  std::vector<std::string_view> fields;
  std::vector<int> numbers;
  while (reader.next(fields)) numbers.push_back(reader.record());
  EXPECT_EQ(numbers, (std::vector<int>{1, 3, 4}));
}

TEST(CsvReader, IsTheSameWhereverAPieceOfTheSourceEnds) {
  const std::string text =
      "\xEF\xBB\xBF"
      "a,\"b\"\"\"\r\n\"1\r\n\",2\r\r\n\"\",\"\"\n";
  const Rows whole = rowsOf(text);
  for (std::size_t atOnce = 1; atOnce < text.size(); ++atOnce)
    EXPECT_EQ(rowsOf(text, atOnce), whole);
}

TEST(CsvReader, ReadsRecordsLongerThanItsPieces) {
  const std::string longText(200'000, 'x');
  EXPECT_EQ(rowsOf("a,b\n\"" + longText + "\"," + longText + "\n3,4\n"),
            (Rows{{"a", "b"}, {longText, longText}, {"3", "4"}}));
}

TEST(CsvReader, RefusesQuotesThatDoNotEnd) {
  EXPECT_EQ(whyNot("a\n\"x\n"), "row 2: quotes that do not end");
  std::string text;  // so long that there were quotes where it ends in memory
  for (int record = 0; record < 50'000; ++record) text += "\"x\"\n";
  EXPECT_EQ(whyNot(text + "\"x"), "row 50001: quotes that do not end");
}

TEST(CsvReader, RefusesTextBehindQuotes) {
  EXPECT_EQ(whyNot("a\n\"x\"y\n"), "row 2: text behind closing quotes");
}

TEST(CsvReader, RefusesUtf16) {
  EXPECT_EQ(whyNot("\xFF\xFE"
                   "a"),
            "the text is UTF-16; save it as UTF-8");
}

TEST(CsvReader, TakesAnyNumberOfRecords) {
  std::string text;
  for (int record = 0; record < 17; ++record) text += std::string(1'000'000, 'x') + "\n";
  EXPECT_EQ(rowsOf(text).size(), 17U);
}

TEST(CsvReader, RefusesARecordWithoutEnd) {
  EXPECT_EQ(whyNot("\"" + std::string(20'000'000, 'x')), "a record that does not end");
}

std::string fieldOf(std::string_view text) {
  std::string line;
  appendCsvField(line, text);
  return line;
}

TEST(CsvText, QuotesWhatNeedsThem) {
  EXPECT_EQ(fieldOf("plain text"), "plain text");
  EXPECT_EQ(fieldOf(""), "");
  EXPECT_EQ(fieldOf("a,b"), "\"a,b\"");
  EXPECT_EQ(fieldOf("a;b"), "\"a;b\"");
  EXPECT_EQ(fieldOf("a\tb"), "\"a\tb\"");
  EXPECT_EQ(fieldOf("say \"a\""), "\"say \"\"a\"\"\"");
  EXPECT_EQ(fieldOf("a\nb"), "\"a\nb\"");
  EXPECT_EQ(fieldOf(" a"), "\" a\"");
  EXPECT_EQ(fieldOf("a "), "\"a \"");
}

TEST(CsvText, AGuardComesOffAsItWentOn) {
  for (const std::string text : {"=1", "+1", "-1", "@x", "\tx", "\rx", "\nx", "'=1", "''-"}) {
    EXPECT_TRUE(needsGuard(text)) << text;
    EXPECT_EQ(withoutGuard("'" + text), text);
  }
  for (const std::string text : {"", "a", "'", "'a", "1=", "''"}) {
    EXPECT_FALSE(needsGuard(text)) << text;
    EXPECT_EQ(withoutGuard(text), text);
  }
}

}  // namespace
}  // namespace quillbox::test
