// What a user sees: on every window all captions are complete, nothing is outside or overlaps, and
// everything is readable in the user's colours.

#include <QScreen>
#include <QScrollArea>
#include <QStyleOptionButton>
#include <QStyleOptionComboBox>
#include <QStyleOptionSpinBox>
#include <map>

#include "forms/all_forms.h"
#include "forms/live_hint.h"
#include "support/contrast.h"

namespace quillbox::test {
namespace {

/// The minimum contrast for a reader.
constexpr double kContrast = 3;

void expectRoom(QSize has, QSize needs, const QWidget* control) {
  EXPECT_GE(has.width(), needs.width()) << nameOf(control) << " is too narrow";
  EXPECT_GE(has.height(), needs.height()) << nameOf(control) << " is too low";
}

QSize textSize(const QWidget& control, const QString& text) {
  return control.fontMetrics().size(Qt::TextShowMnemonic, text);
}

void expectWhole(const QLabel& label) {
  const QRect room = label.contentsRect();
  if (label.text().isEmpty()) return;
  if (label.wordWrap()) {
    const QRect tall(0, 0, room.width(), QWIDGETSIZE_MAX);
    const auto needs = label.fontMetrics().boundingRect(tall, Qt::TextWordWrap, label.text());
    expectRoom(room.size(), needs.size(), &label);
    EXPECT_GE(label.height(), label.heightForWidth(label.width())) << nameOf(&label);
  } else if (label.objectName() == QLatin1String("lblLines") ||
             label.objectName() == QLatin1String("lblStatus")) {
    // The board's lines and a status are cut at the window's edge on purpose: the window must not
    // grow with them.
    EXPECT_GE(room.height(), textSize(label, label.text()).height());
  } else {
    expectRoom(label.size(), label.sizeHint(), &label);
    expectRoom(room.size(), textSize(label, label.text()), &label);
  }
}

QRect roomForText(const QAbstractButton& button) {
  QStyleOptionButton option;
  option.initFrom(&button);
  if (qobject_cast<const QCheckBox*>(&button) != nullptr)
    return button.style()->subElementRect(QStyle::SE_CheckBoxContents, &option, &button);
  if (qobject_cast<const QRadioButton*>(&button) != nullptr)
    return button.style()->subElementRect(QStyle::SE_RadioButtonContents, &option, &button);
  if (qobject_cast<const QPushButton*>(&button) != nullptr)
    return button.style()->subElementRect(QStyle::SE_PushButtonContents, &option, &button);
  return button.rect();
}

void expectWhole(const QAbstractButton& button) {
  QSize needs = textSize(button, button.text());
  const auto* tool = qobject_cast<const QToolButton*>(&button);
  if (tool != nullptr && tool->toolButtonStyle() == Qt::ToolButtonTextUnderIcon)
    needs.rheight() += tool->iconSize().height();
  else if (!button.icon().isNull())
    needs.rwidth() += button.iconSize().width();
  expectRoom(roomForText(button).size(), needs, &button);
  expectRoom(button.size(), button.minimumSizeHint(), &button);
}

void expectWhole(const QComboBox& list) {
  QStyleOptionComboBox option;
  option.initFrom(&list);
  const QRect room = list.style()->subControlRect(QStyle::CC_ComboBox, &option,
                                                  QStyle::SC_ComboBoxEditField, &list);
  expectRoom(room.size(), list.fontMetrics().size(0, list.currentText()), &list);
}

void expectWhole(const QAbstractSpinBox& spin) {
  QStyleOptionSpinBox option;
  option.initFrom(&spin);
  const QRect room =
      spin.style()->subControlRect(QStyle::CC_SpinBox, &option, QStyle::SC_SpinBoxEditField, &spin);
  expectRoom(room.size(), spin.fontMetrics().size(0, spin.text()), &spin);
  expectRoom(spin.size(), spin.minimumSizeHint(), &spin);
}

void expectWhole(const QMenuBar& bar) {
  for (const QAction* menu : bar.actions()) {
    const QRect place = bar.actionGeometry(const_cast<QAction*>(menu));
    EXPECT_TRUE(bar.rect().contains(place)) << menu->text().toStdString();
    expectRoom(place.size(), textSize(bar, menu->text()), &bar);
  }
}

/// No text of the control is cut off.
void expectWhole(const QWidget* control) {
  if (const auto* label = qobject_cast<const QLabel*>(control))
    expectWhole(*label);
  else if (const auto* button = qobject_cast<const QAbstractButton*>(control))
    expectWhole(*button);
  else if (const auto* list = qobject_cast<const QComboBox*>(control))
    expectWhole(*list);
  else if (const auto* spin = qobject_cast<const QAbstractSpinBox*>(control))
    expectWhole(*spin);
  else if (const auto* bar = qobject_cast<const QMenuBar*>(control))
    expectWhole(*bar);
  else
    expectRoom(control->size(), control->minimumSizeHint(), control);
  // A typed text may only be cut at its sides.
  if (qobject_cast<const QLineEdit*>(control) != nullptr) {
    EXPECT_GE(control->height(), control->sizeHint().height()) << nameOf(control);
  }
}

enum class Size { usual, smallest };

/// A window as large as the screen may be too small for its contents.
bool fillsTheScreen(const QWidget& window) {
  const QSize room = window.screen()->availableGeometry().size();
  return window.width() >= room.width() || window.height() >= room.height();
}

/// Neither the window nor anything between it and the control cuts it off. In a small window a
/// scrolling page does.
void expectInside(const QWidget& window, const QWidget* control, Size size) {
  for (const QWidget* around = control; around != &window; around = around->parentWidget()) {
    const QWidget* outer = around->parentWidget();
    if (size == Size::smallest && outer->objectName() == QLatin1String("qt_scrollarea_viewport"))
      continue;
    EXPECT_TRUE(outer->rect().contains(around->geometry()))
        << nameOf(control) << " reaches out of " << nameOf(outer);
  }
}

/// In a small window each input that gets the focus scrolls into view.
void expectInReach(QWidget& window) {
  window.activateWindow();
  EXPECT_TRUE(QTest::qWaitForWindowActive(&window));
  for (auto* page : window.findChildren<QScrollArea*>())
    for (QWidget* control : page->widget()->findChildren<QWidget*>()) {
      if (control->focusPolicy() == Qt::NoFocus || !control->isEnabled()) continue;
      control->setFocus();
      // For a wide box, the part with the caret.
      const QRect place(control->mapTo(page->viewport(), QPoint()), control->size());
      EXPECT_EQ(place.intersected(page->viewport()->rect()).height(), control->height())
          << nameOf(control) << " is out of view";
    }
}

void expectApart(const QWidget& window, const std::vector<QWidget*>& controls) {
  for (auto one = controls.begin(); one != controls.end(); ++one)
    for (auto other = controls.begin(); other != one; ++other) {
      if (standsInMenuBar(window, **one) || standsInMenuBar(window, **other)) continue;
      EXPECT_FALSE(placeIn(window, **one).intersects(placeIn(window, **other)))
          << nameOf(*one) << " lies over " << nameOf(*other);
    }
}

/// No part of a bar is missing for lack of space.
void expectBarsWhole(const QWidget& window) {
  for (const char* more : {"qt_menubar_ext_button", "qt_toolbar_ext_button"})
    for (const auto* button : window.findChildren<QToolButton*>(QString::fromUtf8(more)))
      EXPECT_FALSE(button->isVisible()) << more;
}

void expectAllWhole(const QWidget& window, Size size) {
  auto controls = controlsOf(window);
  EXPECT_FALSE(controls.empty());
  // The hint of the box with the focus covers its neighbours for a moment, on purpose.
  std::erase_if(controls, [](const QWidget* control) {
    return dynamic_cast<const LiveHint*>(control) != nullptr;
  });
  for (const QWidget* control : controls) {
    expectWhole(control);
    expectInside(window, control, size);
  }
  if (size == Size::usual) expectApart(window, controls);
  expectBarsWhole(window);
}

/// A colour as it appears over another.
QColor over(const QColor& color, const QColor& ground) {
  const float share = color.alphaF();
  const auto mixed = [share](float front, float back) {
    return share * front + (1 - share) * back;
  };
  return QColor::fromRgbF(mixed(color.redF(), ground.redF()),
                          mixed(color.greenF(), ground.greenF()),
                          mixed(color.blueF(), ground.blueF()));
}

struct Roles {
  QPalette::ColorRole text;
  QPalette::ColorRole ground;
};

std::vector<Roles> rolesOf(const QWidget* control) {
  std::vector<Roles> roles;
  const auto* box = qobject_cast<const QLineEdit*>(control);
  const bool holdsText =
      box != nullptr || qobject_cast<const QAbstractSpinBox*>(control) != nullptr;
  if (holdsText) {
    roles.push_back({QPalette::Text, QPalette::Base});
    roles.push_back({QPalette::HighlightedText, QPalette::Highlight});
  } else {
    roles.push_back({control->foregroundRole(), control->backgroundRole()});
  }
  if (box != nullptr && !box->placeholderText().isEmpty())
    roles.push_back({QPalette::PlaceholderText, QPalette::Base});
  return roles;
}

/// The contrast between a picture's most frequent colour and the one farthest from it.
double drawnContrast(const QImage& picture) {
  std::map<QRgb, int> pixels;
  // A run of pixels of one colour is counted at once: there are millions of pixels.
  for (int y = 0; y < picture.height(); ++y)
    for (int x = 0; x < picture.width();) {
      const int start = x;
      const QRgb color = picture.pixel(start, y);
      do ++x;
      while (x < picture.width() && picture.pixel(x, y) == color);
      pixels[color] += x - start;
    }
  const auto most = std::ranges::max_element(
      pixels, {}, [](const std::pair<const QRgb, int>& pixel) { return pixel.second; });
  double highest = 0;
  for (const auto& [color, count] : pixels)
    highest = std::max(highest, contrast(QColor(color), QColor(most->first)));
  return highest;
}

/// Except for what is not written, which has a colour of its own and a tint.
bool isOfTheUsersColours(const QWidget& control) {
  QPalette users = QApplication::palette(&control);
  std::vector<QPalette::ColorRole> own;
  if (control.objectName() == QLatin1String("lblNotWritten")) own = {QPalette::WindowText};
  if (control.focusPolicy() != Qt::NoFocus && control.testAttribute(Qt::WA_SetPalette))
    own = {QPalette::Base, QPalette::Button};
  for (const QPalette::ColorRole role : own) users.setColor(role, control.palette().color(role));
  return control.palette() == users;
}

void expectReadable(const QWidget& window) {
  for (QWidget* control : controlsOf(window)) {
    // The colours are the user's; none is the form's own.
    EXPECT_TRUE(isOfTheUsersColours(*control)) << nameOf(control);
    EXPECT_TRUE(control->styleSheet().isEmpty()) << nameOf(control);
    if (!control->isEnabled()) continue;
    for (const auto [text, ground] : rolesOf(control)) {
      const QColor back = control->palette().color(ground);
      EXPECT_GE(contrast(over(control->palette().color(text), back), back), kContrast)
          << nameOf(control) << ", colour " << text << " on " << ground;
    }
    if (!textOf(control).isEmpty()) {
      EXPECT_GE(drawnContrast(control->grab().toImage()), kContrast) << nameOf(control);
    }
  }
}

using AllFormsLook = EachForm;

TEST_P(AllFormsLook, ShowsEverythingWhole) {
  inEach(allLooks(), [](QWidget& window) {
    expectAllWhole(window, fillsTheScreen(window) ? Size::smallest : Size::usual);
  });
}

TEST_P(AllFormsLook, ShowsEverythingWholeAtItsSmallest) {
  inEach(allLooks(), [](QWidget& window) {
    window.resize(1, 1);
    settle(window);
    expectAllWhole(window, Size::smallest);
    expectInReach(window);
  });
}

TEST_P(AllFormsLook, StandsOutInTheUsersColours) { inEach(allLooks(), expectReadable); }

TEST_P(AllFormsLook, FollowsTheUsersColoursWhileItIsOpen) {
  constexpr Look light{1, false, Look::Content::longest};
  constexpr Look dark{1, true, Look::Content::longest};
  for (const auto& [before, after] : {std::pair(light, dark), std::pair(dark, light)}) {
    const QWidget& window = open(before);
    QApplication::setPalette(paletteOf(after));
    QApplication::processEvents();
    SCOPED_TRACE(nameOf(after));
    expectReadable(window);
  }
}

INSTANTIATE_TEST_SUITE_P(Each, AllFormsLook, testing::ValuesIn(kAllForms), formCaseName);

}  // namespace
}  // namespace quillbox::test
