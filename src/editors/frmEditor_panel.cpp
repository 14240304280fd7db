// The panel with all items of the collection, beside or below the form of an editor.

#include <QMenuBar>
#include <QToolButton>

#include "editors/frmEditor.h"
#include "forms/controls.h"
#include "forms/panel_settings.h"
#include "panel/panel.h"

namespace quillbox {
namespace {

/// Keeps space for a button at the right end of a menu bar. Assistive technology finds only menus
/// in a menu bar, so the button is a child of the window and lies over that space.
class MenuBarRoom : public QWidget {
 public:
  explicit MenuBarRoom(QWidget& button) : button_(button) {}

  QSize sizeHint() const override { return button_.sizeHint(); }

 protected:
  void moveEvent(QMoveEvent* event) override {
    QWidget::moveEvent(event);
    place();
  }
  void resizeEvent(QResizeEvent* event) override {
    QWidget::resizeEvent(event);
    place();
  }

 private:
  void place() {
    button_.setGeometry(QRect(mapTo(window(), QPoint()), size()));
    button_.raise();
  }

  QWidget& button_;
};

}  // namespace

void frmEditor::makePanelButton() {
  const QString caption = QStringLiteral("All Items");
  panelButton_ = new QToolButton(this);
  nameControl(*panelButton_, QStringLiteral("cmdPanel"), caption);
  panelButton_->setText(caption);
  panelButton_->setToolTip(QStringLiteral("Show all items of the collection (F9)"));
  panelButton_->setCheckable(true);
  panelButton_->setAutoRaise(true);
  panelButton_->setFocusPolicy(Qt::NoFocus);  // F9 is its key; the form's tab order is unchanged
  // Also when assistive technology toggles it, which is not a click.
  connect(panelButton_, &QToolButton::toggled, this, [this](bool on) {
    if (on != (panel_ != nullptr)) togglePanel();
  });
  menuBar()->setCornerWidget(new MenuBarRoom(*panelButton_), Qt::TopRightCorner);
  onKeys(QKeySequence(Qt::Key_F9), [this] { togglePanel(); });
  onKeys(QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_F), [this] { findInPanel(); });
  onKeys(QKeySequence(Qt::Key_F3), [this] {
    if (panel_ != nullptr) panel_->showNext();
  });
}

/// The editor of media files serves four kinds.
const CollectionKind& frmEditor::openKind() {
  const CollectionKind* kind = kindOfCode(state().kindCode);
  return kind != nullptr && kind->editor == store_.kind().editor ? *kind : store_.kind();
}

void frmEditor::togglePanel() {
  if (!program().isRunning()) {
    const bool opens = panel_ == nullptr;
    showPanel(opens, true);
    if (PanelSettings* settings = program().panelSettings()) settings->setOpen(openKind(), opens);
  }
  panelButton_->setChecked(panel_ != nullptr);
}

void frmEditor::showPanel(bool shown, bool grows) {
  if (!shown && panel_ == nullptr) return;
  panel_ = nullptr;
  if (!shown) {
    setSide(nullptr, false);
    return panelButton_->setChecked(false);
  }
  const auto show = [this](int item) {
    program().run([&] {
      slot_.reset();
      if (item <= state().Count) readAndShow(item);
    });
    // Called from inside the panel, which must not be deleted yet.
    if (isSideOver())
      QTimer::singleShot(0, this, [this] {
        if (isSideOver()) togglePanel();
      });
  };
  panel_ =
      new Panel(program(), {openKind(), recordTexts(), show, [this] { sheet_->focusFirst(); }});
  panelButton_->setChecked(true);
  setSide(panel_, grows);
  panel_->start(state().Count);
  markInPanel();
}

/// In the state in which the user left it for this kind.
void frmEditor::openKeptPanel() {
  const CollectionKind& kind = openKind();
  const PanelSettings* settings = program().panelSettings();
  const bool isKept = settings != nullptr ? settings->isOpen(kind) : panel_ != nullptr;
  if (isKept && panel_ != nullptr && &panel_->kind() == &kind) {
    panel_->start(state().Count);
    markInPanel();
  } else {
    showPanel(isKept, false);
  }
}

void frmEditor::findInPanel() {
  if (panel_ == nullptr) togglePanel();
  if (panel_ != nullptr) panel_->focusFind();
}

void frmEditor::markInPanel() {
  if (panel_ != nullptr) panel_->mark(state().CurRec >= 1 ? position() : 0);
}

void frmEditor::panelTakes(int item, std::span<const std::byte> record) {
  if (panel_ != nullptr) panel_->take(item, record);
}

/// If writing an item fails, the file may have half of it: the panel shows what is there.
void frmEditor::writing(const std::optional<std::int16_t>& item,
                        const std::function<void()>& write) {
  try {
    write();
  } catch (const RunTimeError&) {
    ignoringErrors([&] {
      if (panel_ != nullptr && item && *item >= 1 && *item <= state().Count)
        panelTakes(*item, store_.ReadRecord(*item));
    });
    throw;
  }
}

}  // namespace quillbox
