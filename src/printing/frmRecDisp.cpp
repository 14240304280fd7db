#include "printing/frmRecDisp.h"

#include <QCoreApplication>
#include <QLabel>
#include <QProgressBar>
#include <QVBoxLayout>

#include "forms/qt_text.h"

namespace quillbox {
namespace {

constexpr int kLinesShown = 12;
constexpr int kLineLength = 60;  // characters; a longer line is cut by the window
constexpr int kMillisecondsBetweenRepaints = 33;

}  // namespace

frmRecDisp::frmRecDisp(Program& program) : Form(program, "frmRecDisp") {
  setCaption(QStringLiteral("Printing Status..."));
  auto* page = new QWidget;
  auto* column = new QVBoxLayout(page);
  text_ = new QLabel;
  text_->setObjectName(QStringLiteral("lblLines"));
  text_->setTextFormat(Qt::PlainText);
  text_->setAlignment(Qt::AlignLeft | Qt::AlignTop);
  // The text must not widen the window: a long path is cut, not followed.
  text_->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
  text_->setFixedHeight(fontMetrics().lineSpacing() * kLinesShown);
  page->setMinimumWidth(fontMetrics().averageCharWidth() * kLineLength);
  bar_ = new QProgressBar;
  bar_->setObjectName(QStringLiteral("barProgress"));
  bar_->setAccessibleName(QStringLiteral("Progress"));
  column->addWidget(text_);
  column->addWidget(bar_);
  setCentralWidget(page);
  last_.setSingleShot(true);
  last_.setInterval(kMillisecondsBetweenRepaints);
  connect(&last_, &QTimer::timeout, this, &frmRecDisp::showState);
}

void frmRecDisp::open(const std::string& caption) {
  setBoardCaption(caption);
  clear();
  progress(0, 0);
  show();
  repaintNow();
}

void frmRecDisp::setBoardCaption(const std::string& caption) { setCaption(fromUtf8Text(caption)); }

void frmRecDisp::clear() { lines_.clear(); }

void frmRecDisp::print(const std::string& line) {
  if (lines_.size() == kLinesShown) lines_.removeFirst();
  lines_ << fromUtf8Text(line);
  repaintIfDue();
}

void frmRecDisp::progress(int done, int total) {
  done_ = done;
  total_ = total;
  repaintIfDue();
}

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
  text_->setText(lines_.join(QLatin1Char('\n')));
  bar_->setVisible(total_ > 0);
  bar_->setRange(0, total_);
  bar_->setValue(done_);
}

void frmRecDisp::repaintNow() {
  last_.stop();
  showState();
  QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
  sinceRepaint_.start();
}

}  // namespace quillbox
