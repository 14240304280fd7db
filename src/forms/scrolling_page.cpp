#include "forms/scrolling_page.h"

#include <QApplication>
#include <QHBoxLayout>
#include <QScrollBar>
#include <QVBoxLayout>

namespace quillbox {
namespace {

constexpr int kFewestLines = 4;
constexpr int kFewestColumns = 30;

/// In average characters; wider boxes are not easier to read.
constexpr int kWidest = 160;

}  // namespace

ScrollingPage::ScrollingPage(QWidget* page) {
  auto* holder = new QWidget;
  auto* column = new QVBoxLayout(holder);
  column->setContentsMargins({});
  auto* row = new QHBoxLayout;
  row->addWidget(page, 1);
  row->addStretch(0);  // takes the rest of a wide window
  page->setMaximumWidth(kWidest * fontMetrics().averageCharWidth());
  column->addLayout(row);
  column->addStretch(1);  // the page stays at the top of a higher window
  setWidget(holder);
  setWidgetResizable(true);
  setFrameShape(QFrame::NoFrame);
  setFocusPolicy(Qt::NoFocus);
  connect(qApp, &QApplication::focusChanged, this,
          [this](QWidget* /*before*/, QWidget* now) { keepInView(now); });
}

/// The focus leaves what is being deleted.
ScrollingPage::~ScrollingPage() { disconnect(qApp, nullptr, this, nullptr); }

QSize ScrollingPage::sizeHint() const { return widget()->sizeHint(); }

QSize ScrollingPage::minimumSizeHint() const {
  const QFontMetrics metrics(font());
  const QSize few(kFewestColumns * metrics.averageCharWidth(), kFewestLines * metrics.height());
  const QSize bars(verticalScrollBar()->sizeHint().width(),
                   horizontalScrollBar()->sizeHint().height());
  return few.boundedTo(widget()->minimumSizeHint()) + bars;
}

void ScrollingPage::resizeEvent(QResizeEvent* event) {
  QScrollArea::resizeEvent(event);
  keepInView(window()->focusWidget());
}

/// All of it or, if it is larger than the view, its beginning. What begins near the left stays
/// beside its caption.
void ScrollingPage::keepInView(const QWidget* focus) {
  if (focus == nullptr || !widget()->isAncestorOf(focus)) return;
  const QRect place(focus->mapTo(widget(), QPoint()), focus->size());
  const int reach = viewport()->width();
  const bool beginsNearTheLeft = place.right() < reach || place.left() < reach / 2;
  for (const QPoint corner : {place.bottomRight() + QPoint(1, 1), place.topLeft()})
    ensureVisible(beginsNearTheLeft ? 0 : corner.x(), corner.y(), 0, 0);
}

}  // namespace quillbox
