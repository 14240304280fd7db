#include "forms/help_window.h"

#include <QHBoxLayout>
#include <QKeyEvent>
#include <QPushButton>
#include <QTextBlock>
#include <QTextBrowser>
#include <QTextDocument>
#include <QTextList>
#include <QTextTable>
#include <QVBoxLayout>

#include "forms/controls.h"
#include "forms/icons.h"
#include "forms/window_places.h"

namespace quillbox {
namespace {

constexpr int kPageWidth = 100;  // characters
constexpr int kPageHeight = 40;  // lines

QUrl addressOf(const QString& page) { return QUrl(QStringLiteral("qrc:/docs/manual/") + page); }

/// Shows pictures no wider than the window, so that only text below them needs scrolling.
class Pages : public QTextBrowser {
 public:
  QVariant loadResource(int type, const QUrl& name) override {
    QVariant resource = QTextBrowser::loadResource(type, name);
    if (type != QTextDocument::ImageResource) return resource;
    QImage picture;
    if (!picture.loadFromData(resource.toByteArray())) return resource;
    const int room = viewport()->width() - 3 * static_cast<int>(document()->documentMargin());
    return picture.width() <= room ? picture
                                   : picture.scaledToWidth(room, Qt::SmoothTransformation);
  }
};

/// Room between paragraphs and in tables, of which a page's text says nothing.
void setLayoutOf(QTextDocument& page) {
  const qreal line = QFontMetricsF(page.defaultFont()).height();
  for (QTextBlock block = page.begin(); block.isValid(); block = block.next()) {
    QTextBlockFormat format = block.blockFormat();
    const bool isInTable = QTextCursor(block).currentTable() != nullptr;
    const bool isInList = block.textList() != nullptr;
    format.setTopMargin(format.headingLevel() > 1 ? line : 0);
    format.setBottomMargin(isInTable ? 0 : isInList ? line / 4 : line / 2);
    QTextCursor(block).setBlockFormat(format);
  }
  for (QTextFrame* frame : page.rootFrame()->childFrames()) {
    auto* table = qobject_cast<QTextTable*>(frame);
    if (table == nullptr) continue;
    QTextTableFormat format = table->format();
    format.setBorderCollapse(true);
    format.setBorderStyle(QTextFrameFormat::BorderStyle_Solid);
    format.setBorder(1);
    format.setCellSpacing(0);
    format.setCellPadding(line / 4);
    format.setBottomMargin(line / 2);
    table->setFormat(format);
  }
}

}  // namespace

HelpWindow::HelpWindow(WindowPlaces* places) : places_(places), browser_(new Pages) {
  setObjectName(QStringLiteral("frmHelp"));
  browser_->setObjectName(QStringLiteral("txtPage"));
  browser_->setAccessibleName(QStringLiteral("Help page"));
  browser_->setOpenExternalLinks(true);
  browser_->setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOn);  // what pictures are fitted beside
  browser_->document()->setDocumentMargin(fontMetrics().averageCharWidth() * 2);
  auto* column = new QVBoxLayout(this);
  makeButtons();
  column->addWidget(browser_);
  connect(browser_, &QTextBrowser::sourceChanged, this, [this] {
    setLayoutOf(*browser_->document());
    showTitle();
  });
  resize(fontMetrics().averageCharWidth() * kPageWidth, fontMetrics().height() * kPageHeight);
  if (places_ != nullptr) places_->restore(*this);
}

void HelpWindow::makeButtons() {
  auto* row = new QHBoxLayout;
  const auto add = [&](const char* name, const char* caption, const QIcon& picture) {
    auto* made = makeButton(QString::fromUtf8(name), QString::fromUtf8(caption));
    made->setIcon(picture);
    row->addWidget(made);
    return made;
  };
  auto* back = add("cmdBack", "&Back", icon("go-previous", "previous"));
  auto* forward = add("cmdForward", "&Forward", icon("go-next", "next"));
  auto* all = add("cmdAllPages", "&All Pages", icon("help-contents", "help"));
  row->addStretch(1);
  auto* close = add("cmdClose", "&Close", {});
  for (auto* button : {back, forward}) button->setEnabled(false);
  connect(back, &QPushButton::clicked, browser_, &QTextBrowser::backward);
  connect(forward, &QPushButton::clicked, browser_, &QTextBrowser::forward);
  connect(all, &QPushButton::clicked, this, [this] { open(QStringLiteral("index.md")); });
  connect(close, &QPushButton::clicked, this, &QWidget::close);
  connect(browser_, &QTextBrowser::backwardAvailable, back, &QWidget::setEnabled);
  connect(browser_, &QTextBrowser::forwardAvailable, forward, &QWidget::setEnabled);
  static_cast<QVBoxLayout*>(layout())->addLayout(row);
}

void HelpWindow::open(const QString& page) {
  show();  // ahead of the page, whose pictures take the width that the window has
  browser_->setSource(addressOf(page));
  raise();
  activateWindow();
  browser_->setFocus();
}

void HelpWindow::showTitle() {
  setWindowTitle(browser_->document()->firstBlock().text() + QStringLiteral(" - Quillbox Help"));
}

void HelpWindow::keyPressEvent(QKeyEvent* event) {
  if (event->key() == Qt::Key_Escape)
    close();
  else
    QWidget::keyPressEvent(event);
}

void HelpWindow::hideEvent(QHideEvent* event) {
  if (places_ != nullptr) places_->remember(*this);
  QWidget::hideEvent(event);
}

}  // namespace quillbox
