// The names of columns are the captions of the forms.

#include "overview/columns.h"
#include "support/form_fixture.h"

namespace quillbox::test {
namespace {

class ColumnCaptions : public EditorTest, public testing::WithParamInterface<ModelKind> {
 protected:
  ColumnCaptions() : EditorTest(GetParam()) {}
};

TEST_P(ColumnCaptions, NameTheInputsOfTheForm) {
  open({item("One")});
  const auto columns = columnsOf(kind().row());
  ASSERT_GE(columns.size(), kind().inputs.size());
  for (std::size_t at = 0; at < kind().inputs.size(); ++at) {
    QString caption = control<QWidget>(kind().inputs[at].name).accessibleName();
    if (caption.endsWith(QLatin1Char(':'))) caption.chop(1);
    EXPECT_EQ(caption.toStdString(), columns[at].name);
  }
}

INSTANTIATE_TEST_SUITE_P(Editors, ColumnCaptions, testing::ValuesIn(kModelEditors), nameOfKind);

}  // namespace
}  // namespace quillbox::test
