// What an editor keeps when it goes from one collection to another.

#include "support/form_fixture.h"

namespace quillbox::test {
namespace {

class EachCollection : public EditorTest, public testing::WithParamInterface<ModelKind> {
 protected:
  EachCollection() : EditorTest(GetParam()) {
    typedFolder_ = QString::fromStdString(path("state"));
  }
};

TEST_P(EachCollection, TextIsKeptWhenAListingOfNothingHasHiddenTheEditor) {
  open({});
  type(kind().firstBox(), "Typed");
  desktop_.expectPrint(std::nullopt);
  desktop_.tolerateMessages = true;
  choose("PrintList");
  close();
  ASSERT_EQ(formName(), "frmBegin2");
  desktop_.tolerateOpen = collectionPath();
  choose("O");
  EXPECT_EQ(label("lblStatus"), "Text typed for a new item was not written");
  press("cmdBringBack");
  EXPECT_EQ(first(), "Typed");
}

INSTANTIATE_TEST_SUITE_P(Editors, EachCollection, testing::ValuesIn(kModelEditors),
                         [](const auto& each) { return std::string(each.param.name); });

}  // namespace
}  // namespace quillbox::test
