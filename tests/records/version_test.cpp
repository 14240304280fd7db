#include "records/version.h"

#include <gtest/gtest.h>

namespace quillbox {
namespace {

TEST(Version, AtTheEndOfALineItHasNoBlanksBehindIt) {
  EXPECT_EQ(endingWithVersion("Quillbox V"), "Quillbox V1.71");
  EXPECT_EQ(endingWithVersion(" Music  Area Version: V "), " Music  Area Version: V 1.71");
  EXPECT_EQ(endingWithVersion(""), "1.71");
}

}  // namespace
}  // namespace quillbox
