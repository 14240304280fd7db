#include "panel/preview_view.h"

#include <QFile>
#include <QFileInfo>
#include <QImageReader>
#include <QLabel>
#include <QLocale>
#include <QPixmap>
#include <QPointer>
#include <QPushButton>
#include <QVBoxLayout>
#include <utility>

#include "forms/controls.h"
#include "forms/elided_label.h"
#include "forms/qt_text.h"
#include "forms/wrapping_row.h"
#include "overview/missing_files.h"
#include "panel/sound_length.h"

namespace quillbox {
namespace {

/// Larger pictures are not decoded: a small file can claim to have any size.
constexpr qint64 kMostPixels = 100'000'000;
constexpr int kMostMemory = 512;  // in MiB, for one decoded picture

/// Pictures are decoded for windows up to this size, in pixels.
constexpr QSize kRoom(1600, 1200);

constexpr int kFewestCharacters = 20;

}  // namespace

FileLook lookAtFile(const QString& path, QSize room) {
  const QFileInfo info(path);
  if (!info.exists()) return {{}, QStringLiteral("Not there any more"), false};
  if (!info.isFile()) return {{}, QStringLiteral("This is no file"), true};
  const QString size = QLocale().formattedDataSize(info.size());
  QFile file(path);
  if (!file.open(QIODevice::ReadOnly))
    return {{}, QStringLiteral("Cannot be read: ") + file.errorString(), true};

  if (const auto length = soundLength(file))
    return {{}, QStringLiteral("%1, %2").arg(lengthText(*length), size), true};
  file.seek(0);
  QImageReader::setAllocationLimit(kMostMemory);
  QImageReader reader(&file);
  reader.setDecideFormatFromContent(true);
  reader.setAutoTransform(true);
  const QSize full = reader.size();
  if (!full.isValid() || !reader.canRead()) return {{}, size, true};
  const QString says = QStringLiteral("%1 x %2, %3").arg(full.width()).arg(full.height()).arg(size);
  if (qint64(full.width()) * full.height() > kMostPixels)
    return {{}, says + QStringLiteral(": too large to show"), true};
  if (full.width() > room.width() || full.height() > room.height())
    reader.setScaledSize(full.scaled(room, Qt::KeepAspectRatio).expandedTo({1, 1}));
  QImage picture = reader.read();
  if (picture.isNull()) return {{}, says + QStringLiteral(": cannot be shown"), true};
  return {std::move(picture), says, true};
}

PreviewView::PreviewView(Program& program, const CollectionKind& kind)
    : program_(program), store_(program.state().files, program.state(), kind) {
  reading_.setMaxThreadCount(1);
  auto* column = new QVBoxLayout(this);
  lblPicture_ = new QLabel;
  nameControl(*lblPicture_, QStringLiteral("lblPicture"), QStringLiteral("Picture"));
  lblPicture_->setAlignment(Qt::AlignCenter);
  lblPicture_->setMinimumWidth(kFewestCharacters * fontMetrics().averageCharWidth());
  lblPicture_->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Ignored);
  column->addWidget(lblPicture_, 1);
  lblFile_ = new ElidedLabel(Qt::ElideMiddle);
  lblFile_->setObjectName(QStringLiteral("lblFile"));
  column->addWidget(lblFile_);
  lblSays_ = new ElidedLabel;
  lblSays_->setObjectName(QStringLiteral("lblSays"));
  column->addWidget(lblSays_);
  // No access key: it would conflict with the form's.
  open_ = makeButton(QStringLiteral("cmdOpenMediaFile"), QStringLiteral("Open"));
  open_->setToolTip(QStringLiteral("Open the file in the program for such files"));
  connect(open_, &QPushButton::clicked, this, [this] { program_.run([this] { openFile(); }); });
  auto* row = new WrappingRow;
  row->addWidget(open_);
  column->addLayout(row);
  showLook({});
}

PreviewView::~PreviewView() { reading_.clear(); }  // the pool waits for the running read

void PreviewView::start() { mark(0); }

void PreviewView::showTaken() {
  isLookedAt_ = false;  // the item may have been written
  look();
}

void PreviewView::mark(int item) {
  item_ = item;
  isLookedAt_ = false;
  look();
}

void PreviewView::showEvent(QShowEvent* event) {
  PanelView::showEvent(event);
  look();
}

/// Nothing is read while the view is invisible.
void PreviewView::look() {
  if (!isVisible() || std::exchange(isLookedAt_, true)) return;
  const int nth = ++looks_;
  path_.clear();
  lblFile_->showText({});
  showLook({});
  if (item_ < 1) return;
  ignoringErrors([this] { path_ = mediaFilePath(store_.ReadRecord(item_)).value_or(""); });
  if (path_.empty()) {
    lblSays_->showText(QStringLiteral("The item does not say where its file lies"));
    return;
  }
  lblFile_->showText(fromPath(path_));
  reading_.clear();  // no longer needed
  reading_.start([path = fromPath(path_), nth, view = QPointer(this)] {
    const FileLook found = lookAtFile(path, kRoom);
    QMetaObject::invokeMethod(
        qApp,
        [view, nth, found] {
          if (view && nth == view->looks_) view->showLook(found);
        },
        Qt::QueuedConnection);
  });
}

void PreviewView::showLook(const FileLook& look) {
  picture_ = look.picture;
  lblSays_->showText(look.says);
  open_->setEnabled(look.isThere);
  fit();
}

void PreviewView::fit() {
  if (picture_.isNull()) return lblPicture_->clear();
  const qreal ratio = devicePixelRatioF();
  const QSize room = lblPicture_->size() * ratio;
  const bool isSmall = picture_.width() <= room.width() && picture_.height() <= room.height();
  QPixmap shown = QPixmap::fromImage(
      isSmall ? picture_ : picture_.scaled(room, Qt::KeepAspectRatio, Qt::SmoothTransformation));
  shown.setDevicePixelRatio(ratio);
  lblPicture_->setPixmap(shown);
}

void PreviewView::resizeEvent(QResizeEvent* event) {
  PanelView::resizeEvent(event);
  fit();
}

void PreviewView::openFile() {
  if (!program_.desktop().openFile(path_))
    lblSays_->showText(QStringLiteral("No program was found that opens such files"));
}

}  // namespace quillbox
