#include "forms/help_page.h"

#include <QEvent>
#include <QFile>
#include <QFontInfo>
#include <QScrollBar>
#include <QTextBlock>
#include <QTextDocument>
#include <QTextList>
#include <QTextTable>
#include <QWheelEvent>
#include <algorithm>
#include <cmath>

/// Unless something refers to it, from outside a namespace, the linker leaves the manual out.
static void initManual() { Q_INIT_RESOURCE(manual); }

namespace quillbox {
namespace {

constexpr qreal kZoomStep = 1.15;
constexpr int kFarthestZoom = 8;  // steps in either direction

QUrl addressOf(const QString& page) { return QUrl(QStringLiteral("qrc:/docs/manual/") + page); }

/// Spacing between paragraphs and in tables, which a page's text does not define.
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

/// The picture of that name in the folder for dark palettes, if there is one.
QUrl inDark(const QUrl& picture) {
  const QString name = picture.fileName();
  QUrl dark = picture;
  dark.setPath(picture.path().chopped(name.size()) + QStringLiteral("dark/") + name);
  return QFile::exists(QLatin1Char(':') + dark.path()) ? dark : picture;
}

}  // namespace

HelpPage::HelpPage() : usualSize_(QFontInfo(font()).pointSizeF()), shownDark_(isDark()) {
  initManual();
  setOpenExternalLinks(true);
  setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOn);  // so that the width for pictures is constant
  document()->setDocumentMargin(fontMetrics().averageCharWidth() * 2);
  connect(this, &QTextBrowser::sourceChanged, this, &HelpPage::layOut);
}

void HelpPage::open(const QString& page) { setSource(addressOf(page)); }

void HelpPage::layOut() { setLayoutOf(*document()); }

bool HelpPage::isDark() const {
  return palette().color(QPalette::Base).lightness() < palette().color(QPalette::Text).lightness();
}

/// Pictures are at most as wide as the window, so that only text below them needs scrolling.
QVariant HelpPage::loadResource(int type, const QUrl& name) {
  if (type != QTextDocument::ImageResource) return QTextBrowser::loadResource(type, name);
  const QUrl address = source().resolved(name);
  QVariant resource = QTextBrowser::loadResource(type, isDark() ? inDark(address) : address);
  QImage picture;
  if (!picture.loadFromData(resource.toByteArray())) return resource;
  const int room = viewport()->width() - 3 * static_cast<int>(document()->documentMargin());
  return picture.width() <= room ? picture : picture.scaledToWidth(room, Qt::SmoothTransformation);
}

void HelpPage::setZoom(int zoom) {
  zoom_ = std::clamp(zoom, -kFarthestZoom, kFarthestZoom);
  QFont letters = font();
  letters.setPointSizeF(usualSize_ * std::pow(kZoomStep, zoom_));
  const QTextCursor top = cursorForPosition(viewport()->rect().topLeft());
  setFont(letters);
  layOut();
  // The top line stays the same.
  verticalScrollBar()->setValue(verticalScrollBar()->value() + cursorRect(top).top());
}

/// The same page with the other pictures, at the same place.
void HelpPage::changeEvent(QEvent* event) {
  QTextBrowser::changeEvent(event);
  if (event->type() != QEvent::PaletteChange || isDark() == shownDark_) return;
  shownDark_ = isDark();
  const int place = verticalScrollBar()->value();
  reload();
  verticalScrollBar()->setValue(place);
}

void HelpPage::wheelEvent(QWheelEvent* event) {
  const int turned = event->angleDelta().y();
  if (!event->modifiers().testFlag(Qt::ControlModifier) || turned == 0)
    return QTextBrowser::wheelEvent(event);
  setZoom(zoom_ + (turned > 0 ? 1 : -1));
  event->accept();
}

HelpPage::Found HelpPage::search(const QString& text, From from) {
  const QTextCursor before = textCursor();
  const bool isBackward = from == From::previous;
  const auto direction = isBackward ? QTextDocument::FindBackward : QTextDocument::FindFlags();
  QTextCursor start = before;
  if (from == From::here) start.setPosition(before.selectionStart());
  QTextCursor found = document()->find(text, start, direction);
  auto where = Found::here;
  if (found.isNull()) {
    start.movePosition(isBackward ? QTextCursor::End : QTextCursor::Start);
    found = document()->find(text, start, direction);
    where = Found::fromTheOtherEnd;
  }
  if (found.isNull()) return Found::nowhere;
  setTextCursor(found);
  ensureCursorVisible();
  return where;
}

}  // namespace quillbox
