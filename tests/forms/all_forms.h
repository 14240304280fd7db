#pragma once

// Every window of the program, opened as users open it, large and small, light and dark, empty and
// full. all_forms_*_test.cpp check what must hold for all of them.

#include <QAbstractSpinBox>
#include <QApplication>
#include <QFontInfo>
#include <QLayout>
#include <QListWidget>
#include <QProgressBar>
#include <QRadioButton>
#include <QStyle>
#include <QTabBar>
#include <QToolButton>
#include <algorithm>
#include <cstring>
#include <filesystem>
#include <memory>
#include <ostream>
#include <span>
#include <string>
#include <vector>

#include "forms/recent_collections.h"
#include "forms/recent_list.h"
#include "platform/qt/print_dialog.h"
#include "printing/frmRecDisp.h"
#include "records/version.h"
#include "support/form_fixture.h"

namespace quillbox::test {

/// A window, and the steps that lead to it.
struct FormCase {
  enum class Window { form, fullStart, board, printDialog };

  const char* name;
  const char* picture;                  ///< the name of its picture in docs/forms
  const char* extension = nullptr;      ///< of the collection opened first; none: the start screen
  std::vector<const char*> steps = {};  ///< menu items and buttons, in order
  Window window = Window::form;
};

inline void PrintTo(const FormCase& form, std::ostream* out) { *out << form.name; }

inline const FormCase kAllForms[] = {
    {"Start", "start"},
    {"FullStart", "start-recent", nullptr, {}, FormCase::Window::fullStart},
    {"NewCollection", "new-collection", nullptr, {"N"}},
    {"Music", "music", "MCS"},
    {"Songs1", "music-songs", "MCS", {"EditSongs"}},
    {"Songs2", "music-songs-2", "MCS", {"EditSongs", "cmdNextPage"}},
    {"MusicSort", "sort", "MCS", {kMusic.sort.action}},
    {"MusicSearch", "search", "MCS", {kMusic.search.action}},
    {"Video", "video", "VCS"},
    {"VideoTitles", "video-list", "VCS", {"EditTitles"}},
    {"VideoSort", "video-sort", "VCS", {kVideo.sort.action}},
    {"VideoSearch", "video-search", "VCS", {kVideo.search.action}},
    {"Software", "software", "SCS"},
    {"SoftwareTitles", "software-list", "SCS", {"EditTitles"}},
    {"SoftwareSort", "software-sort", "SCS", {kSoftware.sort.action}},
    {"SoftwareSearch", "software-search", "SCS", {kSoftware.search.action}},
    {"Comics", "comics", "CCS"},
    {"ComicTitles", "comics-list", "CCS", {"EditTitles"}},
    {"ComicSort", "comics-sort", "CCS", {kComics.sort.action}},
    {"ComicSearch", "comics-search", "CCS", {kComics.search.action}},
    {"Books", "books", "BCS"},
    {"BookSort", "books-sort", "BCS", {kBooks.sort.action}},
    {"BookSearch", "books-search", "BCS", {kBooks.search.action}},
    {"MediaFiles", "media-files", "WCS"},
    {"MediaFileSort", "media-files-sort", "WCS", {kWaves.sort.action}},
    {"MediaFileSearch", "media-files-search", "WCS", {kWaves.search.action}},
    {"MusicPanel", "panel-music", "MCS", {"cmdPanel"}},
    {"VideoPanel", "panel-video", "VCS", {"cmdPanel"}},
    {"SoftwarePanel", "panel-software", "SCS", {"cmdPanel"}},
    {"ComicsPanel", "panel-comics", "CCS", {"cmdPanel"}},
    {"BooksPanel", "panel-books", "BCS", {"cmdPanel"}},
    {"MediaFilesPanel", "panel-media-files", "WCS", {"cmdPanel"}},
    {"Board", "board", nullptr, {}, FormCase::Window::board},
    {"PrintDialog", "print", nullptr, {}, FormCase::Window::printDialog},
};

/// How a window looks.
struct Look {
  enum class Content { empty, longest, sample };

  double textScale;  ///< relative to the default size of text
  bool dark;
  Content content;
};

inline std::string nameOf(const Look& look) {
  return (look.textScale > 1 ? "large, " : "usual size, ") +
         std::string(look.dark ? "dark, " : "light, ") +
         (look.content == Look::Content::empty     ? "empty"
          : look.content == Look::Content::longest ? "longest texts"
                                                   : "a sample");
}

inline std::vector<Look> allLooks() {
  std::vector<Look> looks;
  for (const double scale : {1.0, 2.0})
    for (const bool dark : {false, true})
      for (const auto content : {Look::Content::empty, Look::Content::longest})
        looks.push_back({scale, dark, content});
  return looks;
}

inline bool isInput(const QWidget* widget) {
  return qobject_cast<const QLineEdit*>(widget) != nullptr ||
         qobject_cast<const QComboBox*>(widget) != nullptr ||
         qobject_cast<const QListWidget*>(widget) != nullptr ||
         qobject_cast<const QCheckBox*>(widget) != nullptr ||
         qobject_cast<const QRadioButton*>(widget) != nullptr ||
         qobject_cast<const QAbstractSpinBox*>(widget) != nullptr;
}

/// Tabs and tables, in which the arrow keys move.
inline bool isView(const QWidget* widget) {
  return qobject_cast<const QTabBar*>(widget) != nullptr ||
         qobject_cast<const QAbstractItemView*>(widget) != nullptr;
}

inline bool isControl(const QWidget* widget) {
  return isInput(widget) || isView(widget) || qobject_cast<const QLabel*>(widget) != nullptr ||
         qobject_cast<const QAbstractButton*>(widget) != nullptr ||
         qobject_cast<const QProgressBar*>(widget) != nullptr ||
         qobject_cast<const QMenuBar*>(widget) != nullptr;
}

inline bool isPartOfControl(const QWidget* widget) {
  const QWidget* around = widget->parentWidget();
  return around != nullptr && !widget->isWindow() && (isControl(around) || isPartOfControl(around));
}

/// The controls that a user reads or works with, without the parts they consist of.
inline std::vector<QWidget*> controlsOf(const QWidget& window) {
  std::vector<QWidget*> controls;
  for (QWidget* widget : window.findChildren<QWidget*>())
    if (widget->window() == &window && widget->isVisible() && isControl(widget) &&
        !isPartOfControl(widget))
      controls.push_back(widget);
  return controls;
}

/// The same for one class of controls.
template <typename Control>
std::vector<Control*> controlsOf(const QWidget& window) {
  std::vector<Control*> chosen;
  for (QWidget* widget : controlsOf(window))
    if (auto* control = qobject_cast<Control*>(widget)) chosen.push_back(control);
  return chosen;
}

inline std::vector<QWidget*> inputsOf(const QWidget& window) {
  auto inputs = controlsOf(window);
  std::erase_if(inputs, [](const QWidget* widget) { return !isInput(widget); });
  return inputs;
}

inline QRect placeIn(const QWidget& window, const QWidget& control) {
  return {control.mapTo(&window, QPoint(0, 0)), control.size()};
}

/// In the space that a menu bar reserves at its end.
inline bool standsInMenuBar(const QWidget& window, const QWidget& control) {
  const auto* bar = window.findChild<QMenuBar*>();
  const QWidget* room = bar != nullptr ? bar->cornerWidget() : nullptr;
  return room != nullptr && placeIn(window, *room) == placeIn(window, control);
}

/// The text of a control, including access-key marks; empty for one that the user fills.
inline QString textOf(const QWidget* control) {
  if (const auto* label = qobject_cast<const QLabel*>(control)) return label->text();
  if (const auto* button = qobject_cast<const QAbstractButton*>(control)) return button->text();
  return {};
}

/// The name of a control in these tests.
inline std::string nameOf(const QWidget* control) {
  if (control == nullptr) return "nothing";
  if (!control->objectName().isEmpty()) return control->objectName().toStdString();
  const std::string text = textOf(control).toStdString();
  return text.empty() ? control->metaObject()->className() : '"' + text + '"';
}

class AllForms : public FormTest {
 protected:
  AllForms() : font_(QApplication::font()) {}
  ~AllForms() override {
    dialog_.reset();
    modQBX1_.reset();
    program_.reset();
    QApplication::setFont(font_);
    QApplication::setPalette(QPalette());
  }

  /// Opens the window again.
  QWidget& open(const FormCase& which, const Look& look) {
    dialog_.reset();
    setTextScale(look.textScale);
    QApplication::setPalette(paletteOf(look));
    recents_ = nullptr;
    which.window == FormCase::Window::fullStart ? startFull(look.content) : start();
    if (look.content == Look::Content::sample) state_->dataFolder = "/home/anna/Lists";
    QWidget& opened = follow(which, look.content);
    if (look.content == Look::Content::longest) fill(opened);
    settle(opened);
    return opened;
  }

  static QPalette paletteOf(const Look& look) {
    const QColor charcoal(53, 53, 53);
    return look.dark ? QPalette(charcoal, charcoal) : QApplication::style()->standardPalette();
  }

  /// Lets the window take the size that its controls need.
  static void settle(QWidget& window) {
    QApplication::processEvents();
    window.layout()->activate();
    QApplication::processEvents();
  }

 private:
  void setTextScale(double scale) const {
    QFont font = font_;
    font.setPointSizeF(scale * QFontInfo(font_).pointSizeF());
    QApplication::setFont(font);
  }

  QWidget& follow(const FormCase& way, Look::Content content) {
    if (way.window == FormCase::Window::board) return openBoard(content);
    if (way.window == FormCase::Window::printDialog) return openDialog();
    if (way.extension != nullptr) openCollection(way.extension, content);
    for (const char* step : way.steps) {
      if (form().findChild<QAction*>(QString::fromUtf8(step)) != nullptr)
        choose(step);
      else
        control<QAbstractButton>(step).click();
    }
    waitForPanel();
    return form();
  }

  /// Until the panel, if it is open, has read all items.
  void waitForPanel() {
    const auto* told = form().findChild<QLabel*>(QStringLiteral("lblItems"));
    if (told == nullptr) return;
    EXPECT_TRUE(waitFor([&] { return !told->text().endsWith(QStringLiteral(" read")); }));
  }

  void openCollection(const char* extension, Look::Content content) {
    const CollectionKind& kind = *kindOfExtension(extension);
    if (content == Look::Content::sample) return openSample(extension);
    const bool full = content == Look::Content::longest;
    constexpr std::int16_t most = 32767;
    HeaderRecord header;
    header.Count = full ? most : std::int16_t{0};
    header.FileType = kind.rules.fileType;
    header.Version = kVersionText;
    std::string bytes(kind.recordLength, '\0');
    std::memcpy(bytes.data(), &header, sizeof header);
    if (full) {
      std::string item(kind.recordLength, '\0');
      fillBlank(kind.fields, std::as_writable_bytes(std::span(item)));
      bytes += item;
    }
    const std::string name = path(std::string("mine.") + extension);
    writeFile(name, bytes);
    openFile(name);
  }

  void openSample(const char* extension) {
    namespace fs = std::filesystem;
    for (const auto& sample : fs::directory_iterator(QUILLBOX_SOURCE_DIR "/samples")) {
      if (sample.path().extension() != std::string(".") + extension) continue;
      const std::string name = path(sample.path().filename().string());
      fs::copy_file(sample.path(), name, fs::copy_options::overwrite_existing);
      openFile(name);
    }
  }

  void openFile(const std::string& name) {
    desktop_.tolerateOpen = name;
    choose("O");
    desktop_.tolerateOpen.reset();
  }

  /// The start screen with the maximum of recent collections, two of them under their backup's
  /// name, and a file that the command line does not open; or with usual contents.
  void startFull(Look::Content content) {
    const bool isSample = content == Look::Content::sample;
    const std::string name(content == Look::Content::longest ? 100 : 4, 'W');
    recentSettings_ =
        std::make_unique<RecentCollections>(QString::fromStdString(path(name + "ini")));
    recents_ = recentSettings_.get();
    if (isSample) return startWithSamples();
    writeFile(path("pictures.GCS"), "");
    const std::string empty("\0\0\1\0001.71    ", 12);
    for (const CollectionKind& kind : collectionKinds()) {
      const std::string extension(kind.extension);
      const bool isLost = extension == "BCS" || extension == "MPS";
      // Each with a different first letter, and so with a backup of its own.
      const std::string start = path(extension.front() + name);
      writeFile(start + (isLost ? ".bak" : '.' + extension), empty);
      recents_->opened(start + '.' + extension, 32767);
    }
    start({path("pictures.GCS")});
  }

  /// In the same folder each time.
  void startWithSamples() {
    writeFile(path("shelf.bak"), readFile(QUILLBOX_SOURCE_DIR "/samples/shelf.BCS"));
    recents_->opened(path("shelf.BCS"), 55);
    start();
    const auto row = [](const char* file, int count, bool isThere = true) {
      return RecentList::Row{{std::string("/home/anna/Lists/") + file, count}, isThere};
    };
    control<RecentList>("lstRecent")
        .show({row("jazz.MCS", 42), row("tapes.VCS", 32), row("shelf.BCS", 55, false),
               row("longbox.CCS", 46), row("pictures.GCS", 3)});
    control<RecentList>("lstRecent").setCurrentRow(0);
    QApplication::processEvents();
    const auto& list = control<RecentList>("lstRecent");
    form().resize(form().width(), form().height() + list.sizeHint().height() - list.height());
  }

  QWidget& openBoard(Look::Content content) {
    form().hide();
    auto& board = dynamic_cast<frmRecDisp&>(program_->board());
    board.open("Printing Status");
    if (content == Look::Content::empty) return board;
    constexpr int lines = 12;
    for (int line = 1; line <= lines; ++line)
      board.print(content == Look::Content::longest ? std::string(kLongest, 'W')
                                                    : "Printing Page: " + std::to_string(line));
    constexpr int pages = 30;
    board.progress(lines, pages);
    const auto* bar = board.findChild<QProgressBar*>(QStringLiteral("barProgress"));
    EXPECT_TRUE(waitFor([&] { return bar->value() == lines; }));
    return board;
  }

  QWidget& openDialog() {
    form().hide();
    dialog_ = std::make_unique<PrintDialog>(QStringLiteral("QBX List Print"));
    dialog_->show();
    return *dialog_;
  }

  /// The longest text in every box, the longest entry in every list, a tick in every box.
  static void fill(QWidget& window) {
    for (auto* box : controlsOf<QCheckBox>(window)) {
      const bool endsPrinting = box->objectName() == QLatin1String("chkPrintToFile");
      if (!box->isChecked() && !endsPrinting) box->click();
    }
    for (auto* box : controlsOf<QLineEdit>(window))
      box->setText(QString(std::min(box->maxLength(), kLongest), QLatin1Char('W')));
    for (auto* list : controlsOf<QComboBox>(window)) {
      int longest = -1;
      for (int entry = 0; entry < list->count(); ++entry)
        if (longest < 0 || list->itemText(entry).size() > list->itemText(longest).size())
          longest = entry;
      list->setCurrentIndex(longest);
    }
  }

  static constexpr int kLongest = 255;

  QFont font_;
  std::unique_ptr<PrintDialog> dialog_;
  std::unique_ptr<RecentCollections> recentSettings_;
};

/// A test for each window by itself.
class EachForm : public AllForms, public testing::WithParamInterface<FormCase> {
 protected:
  QWidget& open(const Look& look) { return AllForms::open(GetParam(), look); }

  /// Does this with the window in each of the looks.
  template <typename Step>
  void inEach(const std::vector<Look>& looks, Step step) {
    for (const Look& look : looks) {
      SCOPED_TRACE(nameOf(look));
      step(open(look));
    }
  }
};

inline std::string formCaseName(const testing::TestParamInfo<FormCase>& info) {
  return info.param.name;
}

}  // namespace quillbox::test
