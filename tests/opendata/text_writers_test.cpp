// Writing stored texts: plain ones are written directly from the record, and must equal the result
// of the careful way.

#include <gtest/gtest.h>

#include <random>
#include <string>

#include "opendata/csv_text.h"
#include "opendata/json_text.h"
#include "opendata/sink_buffer.h"
#include "support/opendata_support.h"
#include "text/padding.h"

namespace quillbox::test {
namespace {

using Writer = char* (*)(char* to, std::string_view stored);

/// What a writer makes of a stored text; "(care)" if it leaves it to the careful way. Nothing is
/// written outside the space it requires.
std::string written(Writer write, const std::string& stored) {
  constexpr std::string_view fence = "#fence#";
  std::string room(fence);
  room.resize(fence.size() + stored.size() + 2, '?');
  room += fence;
  char* const to = room.data() + fence.size();
  const char* const end = write(to, stored);
  EXPECT_TRUE(room.starts_with(fence) && room.ends_with(fence)) << stored;
  return end == nullptr ? "(care)" : std::string(to, static_cast<std::size_t>(end - to));
}

std::string asField(const std::string& stored) {
  std::string field;
  appendCsvField(field, readable(stored));
  return field;
}

std::string asString(const std::string& stored) {
  std::string json;
  appendJsonString(json, readable(stored));
  return json;
}

/// A text for a field of that width, made of few characters, so that all combinations occur.
std::string anyStored(std::mt19937& random, std::size_t width) {
  constexpr std::string_view usual = "ab  ,;";
  const std::string care("\"\\\n\t\x1f\x7f\x80\xff\0", 9);
  std::string stored(width, ' ');
  const std::size_t length = random() % (width + 1);
  for (std::size_t at = 0; at < length; ++at) stored[at] = usual[random() % usual.size()];
  if (length > 0 && random() % 2 == 0) stored[random() % length] = care[random() % care.size()];
  return stored;
}

TEST(TextWriters, PlainFieldsAreThoseOfTheCarefulWay) {
  EXPECT_EQ(written(writePlainCsvField, "Blue Train   "), "Blue Train");
  EXPECT_EQ(written(writePlainCsvField, "Waltz, Part 1  "), "\"Waltz, Part 1\"");
  EXPECT_EQ(written(writePlainCsvField, " begins with a blank"), "\" begins with a blank\"");
  EXPECT_EQ(written(writePlainCsvField, "     "), "");
  EXPECT_EQ(written(writePlainCsvField, "a\"b"), "(care)");
  EXPECT_EQ(written(writePlainCsvField, std::string("a\0b", 3)), "(care)");
  EXPECT_EQ(written(writePlainCsvField, "\xC9t\xE9"), "(care)");
}

TEST(TextWriters, PlainStringsAreThoseOfTheCarefulWay) {
  EXPECT_EQ(written(writePlainJsonString, "Blue, Train  "), "\"Blue, Train\"");
  EXPECT_EQ(written(writePlainJsonString, ""), "\"\"");
  EXPECT_EQ(written(writePlainJsonString, "a\\b"), "(care)");
  EXPECT_EQ(written(writePlainJsonString, "a\x7f"), "(care)");
}

TEST(TextWriters, ControlCharactersAreEscapedInStrings) {
  EXPECT_EQ(jsonString("\xC2\x81z"), "\"\\u0081z\"");
  EXPECT_EQ(jsonString("a\xC2\x9D"), "\"a\\u009d\"");
  EXPECT_EQ(jsonString("a\x7F"), "\"a\\u007f\"");
  EXPECT_EQ(jsonString("a\xC2\xA1"), "\"a\xC2\xA1\"");
}

TEST(TextWriters, AnyStoredTextIsTheSameBothWays) {
  std::mt19937 random(20261122);
  int plain = 0;
  for (int round = 0; round < 20'000; ++round) {
    const std::string stored = anyStored(random, 1 + random() % 70);
    const std::string field = written(writePlainCsvField, stored);
    const std::string string = written(writePlainJsonString, stored);
    if (field != "(care)") {
      ASSERT_EQ(field, asField(stored));
    }
    if (string != "(care)") {
      ASSERT_EQ(string, asString(stored));
      ++plain;
    }
  }
  EXPECT_GT(plain, 8'000);
}

/// Only pieces that are passed on together.
class Pieces : public TextSink {
 public:
  void write(std::string_view text) override { sizes.push_back(text.size()); }
  std::vector<std::size_t> sizes;
};

TEST(SinkBuffer, HandsManySmallPiecesOverAtOnce) {
  Pieces pieces;
  SinkBuffer buffer(pieces);
  for (int i = 0; i < 40'000; ++i) buffer += 'x';
  EXPECT_EQ(pieces.sizes, std::vector<std::size_t>{32'768});
  buffer.flush();
  EXPECT_EQ(pieces.sizes, (std::vector<std::size_t>{32'768, 7'232}));
}

TEST(SinkBuffer, TakesAPieceThatIsLongerThanItself) {
  KeptText kept;
  SinkBuffer buffer(kept);
  const std::string longer(100'000, 'y');
  ((buffer += "x") += longer) += "";
  buffer.flush();
  EXPECT_TRUE(kept.kept == "x" + longer);
}

}  // namespace
}  // namespace quillbox::test
