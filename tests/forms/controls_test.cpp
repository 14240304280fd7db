#include "forms/controls.h"

#include <gtest/gtest.h>

#include <QLabel>

namespace quillbox::test {
namespace {

TEST(Controls, ALabelKeepsRoomForItsWidestTextAndTheMarginsBesideIt) {
  QLabel label("1");
  label.setMargin(5);
  keepRoomFor(label, "1 of 32767");
  const int widest = label.fontMetrics().horizontalAdvance("1 of 32767");
  EXPECT_EQ(label.minimumWidth(), widest + 10);
  keepRoomFor(label, "1 of 1");
  EXPECT_EQ(label.minimumWidth(), widest + 10) << "what it has it keeps";
}

}  // namespace
}  // namespace quillbox::test
