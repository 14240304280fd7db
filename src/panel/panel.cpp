#include "panel/panel.h"

#include <QElapsedTimer>
#include <QTabBar>
#include <utility>

#include "forms/controls.h"
#include "overview/loans.h"
#include "panel/doubles_view.h"
#include "panel/loans_view.h"
#include "panel/missing_view.h"
#include "panel/preview_view.h"
#include "panel/summary_view.h"

namespace quillbox {
namespace {

/// How often to check whether a running command is over.
constexpr int kWait = 50;

/// In average characters, and rows of the list.
constexpr int kUsualWidth = 80;
constexpr int kUsualRows = 20;

}  // namespace

Panel::Panel(Program& program, PanelSource source) : program_(program), source_(std::move(source)) {
  nameControl(*this, QStringLiteral("Panel"), QStringLiteral("All Items"));
  setDocumentMode(true);
  const auto run = [this](const std::function<void()>& command) { program_.run(command); };
  list_ = new ItemList({program.state().files, program.state(), source_.kind, source_.texts},
                       {source_.show, run, source_.leave, [this] { readSoon(); }},
                       program.panelSettings());
  addTab(list_, QStringLiteral("Items"));
  const PanelOwner owner{source_.show, [this](const std::vector<int>& items, const QString& what) {
                           setCurrentWidget(list_);
                           list_->showOnly(items, what);
                         }};
  const CollectionKind& kind = source_.kind;
  if (Loans::hasLoans(kind))
    addView(new LoansView(kind, program.desktop(), owner), QStringLiteral("Loans"));
  if (MissingFiles::hasFiles(kind)) {
    addView(new PreviewView(program, kind), QStringLiteral("Preview"));
    FileSystem& files = program.state().files.fileSystem();
    addView(new MissingView(files, kind, owner), QStringLiteral("Missing Files"));
  }
  addView(new DoublesView(kind, source_.texts, owner), QStringLiteral("Doubles"));
  addView(new SummaryView(kind, source_.texts, program, owner), QStringLiteral("Summary"));
  timer_.setSingleShot(true);
  connect(&timer_, &QTimer::timeout, this, [this] { readOn(); });
  connect(this, &QTabWidget::currentChanged, this, [this](int tab) { lookAt(tab); });
}

void Panel::addView(PanelView* view, const QString& caption) {
  OpenFiles& files = program_.state().files;
  views_.push_back({view, ItemReading(files, program_.state(), source_.kind)});
  addTab(view, caption);
}

void Panel::start(int count) {
  list_->start(count);
  for (View& each : views_) {
    each.view->start();
    each.reading.start(count);
    each.isShown = false;
  }
  lookAt(currentIndex());
}

void Panel::setCount(int count) {
  list_->setCount(count);
  for (View& each : views_) {
    if (count < each.reading.count()) each.view->cutTo(count);
    each.reading.setCount(count);
    each.isShown = false;
  }
  readSoon();
}

void Panel::take(int item, std::span<const std::byte> record) {
  list_->take(item, record);
  for (View& each : views_) {
    if (item > each.reading.count()) each.reading.setCount(item);
    // What has not been read yet comes later.
    if (item <= each.reading.readItems()) each.view->take(item, record);
    each.isShown = false;
  }
  readSoon();
}

void Panel::mark(int item) {
  list_->mark(item);
  for (const View& each : views_) each.view->mark(item);
}

void Panel::focusFind() {
  setCurrentWidget(list_);
  list_->focusFind();
}

void Panel::showNext() { list_->showNext(); }

QSize Panel::sizeHint() const {
  return {kUsualWidth * fontMetrics().averageCharWidth(),
          minimumSizeHint().height() + kUsualRows * fontMetrics().lineSpacing()};
}

QSize Panel::minimumSizeHint() const {
  return QTabWidget::minimumSizeHint().expandedTo({tabBar()->sizeHint().width(), 0});
}

void Panel::lookAt(int tab) {
  for (View& each : views_)
    if (each.view == widget(tab)) each.isWanted = true;
  readSoon();
}

void Panel::showEvent(QShowEvent* event) {
  QTabWidget::showEvent(event);
  readSoon();
}

void Panel::hideEvent(QHideEvent* event) {
  timer_.stop();
  QTabWidget::hideEvent(event);
}

void Panel::readSoon() {
  if (isVisible() && !timer_.isActive()) timer_.start(0);
}

/// Never during a command, which may have half written the file.
void Panel::readOn() {
  if (program_.isRunning()) return timer_.start(kWait);
  QElapsedTimer clock;
  clock.start();
  const auto stop = [&clock] { return clock.elapsed() >= kReadingPiece; };
  bool hasMore = list_->readOn(stop);
  for (View& each : views_)
    if (each.isWanted && !each.isShown) hasMore = stop() || readView(each, stop) || hasMore;
  if (hasMore) timer_.start(0);
}

/// Returns whether there is more to read.
bool Panel::readView(View& view, const ItemReading::Stop& stop) {
  if (view.reading.state() == ReadState::unfinished)
    view.reading.readOn(
        [&view](int item, std::span<const std::byte> record) { view.view->take(item, record); },
        stop);
  if (view.reading.state() == ReadState::unfinished) return true;
  if (!view.isShown) view.view->showTaken();
  view.isShown = true;
  return false;
}

}  // namespace quillbox
