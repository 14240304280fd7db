#include "records/record_texts.h"

#include <gtest/gtest.h>

#include "records/music_record.h"

namespace quillbox {
namespace {

TEST(BuiltInChoice, IsTheEntryOfTheList) {
  EXPECT_EQ(builtInChoice(*musicField("Genre"), 0), "Alternative");
  EXPECT_EQ(builtInChoice(*musicField("Genre"), 14), "Soundtrack");
}

TEST(BuiltInChoice, IsEmptyWhereTheListHasNone) {
  for (const int index : {-32768, -1, 15, 32767})
    EXPECT_EQ(builtInChoice(*musicField("Genre"), index), "") << index;
  EXPECT_EQ(builtInChoice(*musicField("Artist"), 0), "");
}

}  // namespace
}  // namespace quillbox
