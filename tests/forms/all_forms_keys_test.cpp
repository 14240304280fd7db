// What a user without a mouse, or without a screen, needs from every window: names, the tab order,
// and access keys.

#include <QAccessible>
#include <QKeySequence>
#include <QMenu>
#include <QScrollArea>
#include <map>
#include <set>

#include "forms/all_forms.h"
#include "forms/qt_text.h"

namespace quillbox::test {
namespace {

constexpr Look kEmpty{1, false, Look::Content::empty};
constexpr Look kFull{1, false, Look::Content::longest};
constexpr Look kLargeEmpty{2, false, Look::Content::empty};
constexpr Look kLargeFull{2, false, Look::Content::longest};

std::string spokenName(QWidget* control) {
  const auto* spoken = QAccessible::queryAccessibleInterface(control);
  return spoken == nullptr ? "" : spoken->text(QAccessible::Name).toStdString();
}

/// The caption beside or on an input, as it is on screen.
std::string captionOf(const QWidget& window, const QWidget* input) {
  if (qobject_cast<const QAbstractButton*>(input) != nullptr)
    return withoutAccessKey(textOf(input)).toStdString();
  for (const auto* label : controlsOf<QLabel>(window))
    if (label->buddy() == input) return withoutAccessKey(label->text()).toStdString();
  ADD_FAILURE() << nameOf(input) << " has no caption";
  return {};
}

/// The song boxes of a page go down its columns, as they are numbered.
bool runsDownColumns(const QWidget* control) {
  return control->objectName().startsWith(QLatin1String("txtSongTitle_"));
}

/// Row by row from the top, each from the left. What goes down columns counts as one row.
std::vector<QWidget*> inReadingOrder(const QWidget& window, std::vector<QWidget*> controls) {
  const auto middle = [&](const QWidget* control) { return placeIn(window, *control).center(); };
  std::ranges::sort(controls, {}, [&](const QWidget* control) { return middle(control).y(); });
  std::vector<QWidget*> ordered;
  for (auto row = controls.begin(); row != controls.end();) {
    const int tolerance = (*row)->height() / 2;
    const auto end = std::find_if(row, controls.end(), [&](const QWidget* control) {
      return runsDownColumns(*row) ? !runsDownColumns(control)
                                   : middle(control).y() - middle(*row).y() >= tolerance;
    });
    std::sort(row, end, [&](const QWidget* one, const QWidget* other) {
      const QPoint a = placeIn(window, *one).topLeft();
      const QPoint b = placeIn(window, *other).topLeft();
      return std::pair(a.x(), a.y()) < std::pair(b.x(), b.y());
    });
    ordered.insert(ordered.end(), row, end);
    row = end;
  }
  return ordered;
}

/// Of exclusive options the Tab key stops at one; the arrow keys lead to the others.
bool isPassedBy(const QWidget* control) {
  if (qobject_cast<const QRadioButton*>(control) == nullptr) return false;
  const auto options =
      control->parentWidget()->findChildren<QRadioButton*>(Qt::FindDirectChildrenOnly);
  const auto chosen = std::ranges::find_if(options, &QRadioButton::isChecked);
  return control != (chosen != options.end() ? *chosen : options.front());
}

/// Every input and button that the Tab key must stop at.
std::vector<QWidget*> stopsOf(const QWidget& window) {
  auto stops = controlsOf(window);
  std::erase_if(stops, [&window](const QWidget* control) {
    if (standsInMenuBar(window, *control)) return true;  // it has a key of its own
    const bool works = isInput(control) || isView(control) ||
                       qobject_cast<const QAbstractButton*>(control) != nullptr;
    return !works || !control->isEnabled() || isPassedBy(control);
  });
  return stops;
}

std::string namesOf(const std::vector<QWidget*>& controls) {
  std::string names;
  for (const QWidget* control : controls) names += nameOf(control) + '\n';
  return names;
}

/// What scrolls comes before the buttons below it, wherever it has been scrolled to.
std::vector<QWidget*> inOrder(const QWidget& window) {
  auto stops = stopsOf(window);
  const auto* page = window.findChild<QScrollArea*>();
  if (page == nullptr) return inReadingOrder(window, stops);
  const auto below = std::partition(stops.begin(), stops.end(), [page](const QWidget* control) {
    return page->isAncestorOf(control);
  });
  auto ordered = inReadingOrder(window, {stops.begin(), below});
  std::ranges::copy(inReadingOrder(window, {below, stops.end()}), std::back_inserter(ordered));
  return ordered;
}

void expectTabsInReadingOrder(QWidget& window) {
  const auto expected = inOrder(window);
  if (expected.empty()) return;  // nothing to operate
  std::vector<QWidget*> reached;
  expected.front()->setFocus(Qt::TabFocusReason);
  for (std::size_t step = 0; step < expected.size(); ++step) {
    QWidget* focus = window.focusWidget();
    ASSERT_NE(focus, nullptr);
    reached.push_back(focus);
    QTest::keyClick(focus, Qt::Key_Tab);
  }
  EXPECT_EQ(namesOf(reached), namesOf(expected));
  EXPECT_EQ(nameOf(window.focusWidget()), nameOf(expected.front())) << "and round again";
  for (auto last = reached.rbegin(); last != reached.rend(); ++last) {
    QTest::keyClick(window.focusWidget(), Qt::Key_Backtab, Qt::ShiftModifier);
    EXPECT_EQ(nameOf(window.focusWidget()), nameOf(*last)) << "backwards";
  }
}

using Owners = std::map<std::string, std::vector<std::string>>;  // by access key

void addKey(Owners& owners, const QString& text, const std::string& owner) {
  const QKeySequence key = QKeySequence::mnemonic(text);
  if (!key.isEmpty()) owners[key.toString().toStdString()].push_back(owner);
}

std::set<std::string> clashesOf(const Owners& owners, const std::string& where) {
  std::set<std::string> clashes;
  for (const auto& [key, names] : owners) {
    if (names.size() < 2) continue;
    std::string clash = where + ' ' + key + ':';
    for (const std::string& name : names) clash += ' ' + name;
    clashes.insert(clash);
  }
  return clashes;
}

/// The access keys of a window, including its menu titles.
Owners keysOf(const QWidget& window) {
  Owners owners;
  for (const auto* bar : controlsOf<QMenuBar>(window))
    for (const QAction* title : bar->actions())
      addKey(owners, title->text(), nameOf(title->menu()));
  for (const QWidget* control : controlsOf(window)) {
    const auto* label = qobject_cast<const QLabel*>(control);
    if (label != nullptr && label->buddy() == nullptr) continue;
    addKey(owners, textOf(control), nameOf(label != nullptr ? label->buddy() : control));
  }
  return owners;
}

/// The access keys that more than one control uses: on the window itself, including its menu
/// titles, and in each of its menus.
std::set<std::string> clashesOf(const QWidget& window) {
  const std::string name = nameOf(&window);
  std::set<std::string> clashes = clashesOf(keysOf(window), name);
  for (const auto* bar : controlsOf<QMenuBar>(window))
    for (const QAction* title : bar->actions()) {
      if (title->menu() == nullptr) continue;
      Owners items;
      for (const QAction* item : title->menu()->actions())
        addKey(items, item->text(), item->objectName().toStdString());
      clashes.merge(clashesOf(items, name + ' ' + nameOf(title->menu())));
    }
  return clashes;
}

/// The letters that no control of the window uses.
std::string freeLettersOf(const QWidget& window) {
  const Owners owners = keysOf(window);
  std::string letters;
  for (char letter = 'A'; letter <= 'Z'; ++letter)
    if (!owners.contains(std::string("Alt+") + letter)) letters += letter;
  return letters;
}

// Users know these captions, so shared keys stay shared.
const std::set<std::string> kSharedKeys = {
    "frmBooks Alt+N: txtBooks_3 cmdNext",
    "frmBooks Alt+P: PrintMenu txtBooks_2",
    "frmComicSearch Alt+H: txtCmic_3 txtCmic_7",
    "frmComics Alt+G: chkBagged cmdGoTo",
    "frmComics Alt+H: HelpMenu txtCmic_3 txtCmic_7",
    "frmComics Alt+V: txtCmic_4 cmdPrevious",
    "frmMusSearch Alt+G: cmbGenre cmdSearch",
    "frmMusSearch Alt+L: txtAlbum chkCurrLoaned",
    "frmMusSearch Alt+O: txtBorrower chkBookLoaned",
    "frmMusSearch Alt+U: txtAquireCost txtDueDate",
    "frmMusic Alt+C: txtCurrCost cmdClearData",
    "frmMusic Alt+L: txtAlbum chkCurrLoaned",
    "frmMusic Alt+N: txtNotes cmdNext",
    "frmMusic Alt+O: txtBorrower chkBookLoaned",
    "frmMusic Alt+R: PrintMenu txtRecordCo",
    "frmMusic Alt+T: SetupMenu txtDateLoaned cmdGoto",
    "frmMusic Alt+U: txtAquireCost txtDueDate",
    "frmNewCollection Alt+G: cmdNew optQBX_8",
    "frmSoftware Alt+E: EditMenu chkCDRequired",
    "frmSoftware Alt+L: cmdClear cmdDelete",
    "frmSoftwareTitles Alt+X: cmdNext cmdExit",
    "frmVideo Alt+N: txtNotes cmdNext",
    "frmVideo Alt+P: txtPublisher txtPurPrice",
    "frmVideoSearch Alt+P: txtPublisher txtPurPrice",
    "frmWave Alt+P: PrintMenu txtPath",
};

using AllFormsKeys = EachForm;

TEST_P(AllFormsKeys, CallsEveryInputByItsCaption) {
  inEach({kEmpty, kFull}, [](const QWidget& window) {
    for (QWidget* input : inputsOf(window)) {
      EXPECT_NE(spokenName(input), "") << nameOf(input);
      EXPECT_EQ(spokenName(input), captionOf(window, input)) << nameOf(input);
    }
    for (auto* button : controlsOf<QAbstractButton>(window))
      EXPECT_EQ(spokenName(button), withoutAccessKey(button->text()).toStdString());
    for (auto* bar : controlsOf<QProgressBar>(window)) EXPECT_NE(spokenName(bar), "");
  });
}

TEST_P(AllFormsKeys, TellsTheKeysOfEveryButton) {
  inEach({kFull}, [](const QWidget& window) {
    for (auto* button : controlsOf<QPushButton>(window)) {
      const auto tip = button->toolTip();
      EXPECT_FALSE(tip.isEmpty() || tip.startsWith(QLatin1Char('('))) << nameOf(button);
      if (QKeySequence::mnemonic(button->text()).isEmpty()) continue;  // only Tab and Space
      EXPECT_TRUE(tip.contains(QStringLiteral(" (")) && tip.endsWith(QLatin1Char(')')))
          << nameOf(button) << ' ' << tip.toStdString();
    }
  });
}

TEST_P(AllFormsKeys, IsWalkedThroughInReadingOrder) {
  inEach({kEmpty, kFull, kLargeEmpty, kLargeFull}, expectTabsInReadingOrder);
}

TEST_P(AllFormsKeys, IsNotTypedIntoByKeysThatNothingAnswersTo) {
  inEach({kEmpty, kFull}, [](QWidget& window) {
    if (dynamic_cast<Form*>(&window) == nullptr) return;
    for (QWidget* input : inputsOf(window)) {
      const auto* list = qobject_cast<const QComboBox*>(input);
      const auto* box = qobject_cast<const QLineEdit*>(input);
      const auto shown = [&] {
        return list != nullptr ? list->currentText() : box != nullptr ? box->text() : QString();
      };
      const auto before = shown();
      for (const char letter : freeLettersOf(window)) {
        QTest::keyClick(input, letter, Qt::AltModifier);
        EXPECT_EQ(shown().toStdString(), before.toStdString()) << nameOf(input) << ' ' << letter;
      }
    }
  });
}

INSTANTIATE_TEST_SUITE_P(Each, AllFormsKeys, testing::ValuesIn(kAllForms), formCaseName);

TEST_F(AllForms, LeadThroughOptionsWithTheArrowKeys) {
  const QWidget& window = open({"NewCollection", "new-collection", nullptr, {"N"}}, kEmpty);
  const auto options = controlsOf<QRadioButton>(window);
  ASSERT_EQ(options.size(), collectionKinds().size());
  options.front()->setFocus();
  for (std::size_t next = 1; next < options.size(); ++next) {
    QTest::keyClick(window.focusWidget(), Qt::Key_Down);
    EXPECT_EQ(nameOf(window.focusWidget()), nameOf(options.at(next)));
  }
}

TEST_F(AllForms, ShareNoAccessKeysButTheKnownOnes) {
  std::set<std::string> clashes;
  for (const FormCase& which : kAllForms) clashes.merge(clashesOf(open(which, kFull)));
  EXPECT_EQ(clashes, kSharedKeys);
}

}  // namespace
}  // namespace quillbox::test
