#include "forms/elided_label.h"

#include <gtest/gtest.h>

#include <QVBoxLayout>

namespace quillbox::test {
namespace {

class ElidedLabelTest : public testing::Test {
 protected:
  /// The text at that width, in characters.
  std::string shownAt(int characters, ElidedLabel& label) {
    label.resize(characters * label.fontMetrics().averageCharWidth(), 20);
    label.show();
    return label.text().toStdString();
  }

  const QString path_ = QStringLiteral("/home/anna/Lists/a rather long name.MCS");
};

TEST_F(ElidedLabelTest, ShowsItsTextAsItIs) {
  ElidedLabel label;
  label.showText(QStringLiteral("<b>a</b> & b"));
  EXPECT_EQ(shownAt(50, label), "<b>a</b> & b");
  EXPECT_EQ(label.textFormat(), Qt::PlainText);
}

TEST_F(ElidedLabelTest, TellsAllOfATextThatItCuts) {
  ElidedLabel atItsEnd;
  ElidedLabel inItsMiddle(Qt::ElideMiddle);
  for (ElidedLabel* label : {&atItsEnd, &inItsMiddle}) {
    label->showText(path_);
    const QString cut = QString::fromStdString(shownAt(15, *label));
    EXPECT_TRUE(cut.startsWith("/home")) << cut.toStdString();
    EXPECT_EQ(cut.endsWith("MCS"), label == &inItsMiddle) << cut.toStdString();
    EXPECT_EQ(label->toolTip(), path_);
    EXPECT_EQ(label->accessibleName(), path_);
    EXPECT_EQ(label->fullText(), path_);
    EXPECT_EQ(shownAt(80, *label), path_.toStdString());
    EXPECT_EQ(label->toolTip(), "") << "it would only repeat the text";
  }
}

TEST_F(ElidedLabelTest, FollowsItsLetters) {
  ElidedLabel label;
  label.showText(path_);
  EXPECT_EQ(shownAt(60, label), path_.toStdString());
  QFont large = label.font();
  large.setPointSizeF(3 * large.pointSizeF());
  label.setFont(large);
  EXPECT_LT(label.text().size(), path_.size());
}

TEST_F(ElidedLabelTest, IsAsHighWhenItIsEmptyAndWidensNoWindow) {
  QWidget window;
  auto* column = new QVBoxLayout(&window);
  column->setContentsMargins(0, 0, 0, 0);
  auto* label = new ElidedLabel;
  column->addWidget(label);
  const QSize empty = column->minimumSize();
  EXPECT_EQ(empty, QSize(0, label->fontMetrics().height()));
  label->showText(path_);
  window.resize(1000, 200);
  window.show();
  EXPECT_EQ(label->text(), path_);
  EXPECT_EQ(column->minimumSize(), empty);
  EXPECT_EQ(label->height(), empty.height()) << "however high the window is";
}

}  // namespace
}  // namespace quillbox::test
