#include "printing/frmRecDisp.h"

#include <QCoreApplication>
#include <QLabel>
#include <QProgressBar>
#include <QVBoxLayout>
#include <algorithm>
#include <utility>

#include "forms/qt_text.h"

namespace quillbox {
namespace {

constexpr int kLineLength = 60;  // characters; the window cuts longer lines
constexpr int kMillisecondsBetweenRepaints = 33;

}  // namespace

frmRecDisp::frmRecDisp(Program& program) : Form(program, "frmRecDisp") {
  setCaption(QStringLiteral("Current Page"));
  auto* page = new QWidget;
  auto* column = new QVBoxLayout(page);
  text_ = new QLabel;
  text_->setObjectName(QStringLiteral("lblLines"));
  text_->setTextFormat(Qt::PlainText);
  text_->setAlignment(Qt::AlignLeft | Qt::AlignTop);
  // The text must not widen the window: a long path is cut.
  text_->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
  text_->setFixedHeight(fontMetrics().lineSpacing() * static_cast<int>(lines_.size()));
  page->setMinimumWidth(fontMetrics().averageCharWidth() * kLineLength);
  bar_ = new QProgressBar;
  bar_->setObjectName(QStringLiteral("barProgress"));
  bar_->setAccessibleName(QStringLiteral("Progress"));
  column->addWidget(text_);
  column->addWidget(bar_);
  column->addWidget(makeStatusLine());
  setCentralWidget(page);
  last_.setSingleShot(true);
  last_.setInterval(kMillisecondsBetweenRepaints);
  connect(&last_, &QTimer::timeout, this, &frmRecDisp::showState);
}

void frmRecDisp::Form_Load() { setCaption(QStringLiteral("Printing Status...")); }

/// Any use of the board loads it first.
void frmRecDisp::load() {
  if (!std::exchange(isLoaded_, true)) Form_Load();
}

void frmRecDisp::setVisible(bool visible) {
  if (visible) load();
  Form::setVisible(visible);
}

void frmRecDisp::open(const std::string& caption) {
  setBoardCaption(caption);
  clear();
  progress(0, 0);
  show();
  repaintNow();
}

void frmRecDisp::setBoardCaption(const std::string& caption) {
  load();
  setCaption(fromUtf8Text(caption));
}

void frmRecDisp::clear() { printed_ = 0; }

/// Most lines are never seen: they are converted only when the window is painted.
void frmRecDisp::print(const std::string& line) {
  lines_.at(printed_++ % lines_.size()) = line;
  repaintIfDue();
}

void frmRecDisp::progress(int done, int total) {
  done_ = done;
  total_ = total;
  repaintIfDue();
}

void frmRecDisp::tell(const std::string& status) { showStatus(fromUtf8Text(status)); }

void frmRecDisp::close() { hide(); }

void frmRecDisp::repaintIfDue() {
  if (!isVisible()) return;
  if (sinceRepaint_.isValid() && sinceRepaint_.elapsed() < kMillisecondsBetweenRepaints) {
    if (!last_.isActive()) last_.start();
    return;
  }
  repaintNow();
}

void frmRecDisp::showState() {
  QStringList lines;
  const std::size_t first = printed_ - std::min(printed_, lines_.size());
  for (std::size_t line = first; line < printed_; ++line)
    lines << fromUtf8Text(lines_.at(line % lines_.size()));
  text_->setText(lines.join(QLatin1Char('\n')));
  bar_->setVisible(total_ > 0);
  bar_->setRange(0, total_);
  bar_->setValue(done_);
  bar_->setFormat(QStringLiteral("%1 of %2, %3 left").arg(done_).arg(total_).arg(total_ - done_));
}

void frmRecDisp::repaintNow() {
  last_.stop();
  showState();
  QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
  sinceRepaint_.start();
}

}  // namespace quillbox
