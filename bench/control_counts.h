#pragma once

#include <QAction>
#include <QCheckBox>
#include <QComboBox>
#include <QFrame>
#include <QLabel>
#include <QLineEdit>
#include <QMainWindow>
#include <QMenu>
#include <QMenuBar>
#include <QPushButton>
#include <QScrollArea>
#include <QToolButton>
#include <algorithm>
#include <array>
#include <fstream>
#include <functional>
#include <stdexcept>
#include <string>

namespace quillbox::bench {

/// How many controls of each kind a window shows.
struct ControlCounts {
  int labels = 0;
  int inputs = 0;
  int lists = 0;
  int boxes = 0;
  int buttons = 0;
  int toolButtons = 0;
  int lines = 0;
  int scrollAreas = 0;
  int menus = 0;
  int menuItems = 0;  ///< without separators
};

template <typename Control>
int visibleIn(const QWidget& window) {
  const auto all = window.findChildren<Control*>();
  return static_cast<int>(std::ranges::count_if(all, &QWidget::isVisible));
}

inline ControlCounts countControls(const QMainWindow& window) {
  ControlCounts counts;
  counts.labels = visibleIn<QLabel>(window);
  counts.inputs = visibleIn<QLineEdit>(window);
  counts.lists = visibleIn<QComboBox>(window);
  counts.boxes = visibleIn<QCheckBox>(window);
  counts.buttons = visibleIn<QPushButton>(window);
  counts.toolButtons = visibleIn<QToolButton>(window);
  counts.scrollAreas = visibleIn<QScrollArea>(window);
  for (const QFrame* frame : window.findChildren<QFrame*>())
    if (frame->isVisible() && frame->frameShape() == QFrame::HLine) ++counts.lines;
  for (const QMenu* menu : window.findChildren<QMenu*>()) {
    const auto items = menu->actions();
    ++counts.menus;
    counts.menuItems +=
        static_cast<int>(std::ranges::count_if(items, std::not_fn(&QAction::isSeparator)));
  }
  return counts;
}

/// All of them, in the order in which they stand in a file.
inline auto pointersTo(ControlCounts& counts) {
  return std::array{&counts.labels,  &counts.inputs,      &counts.lists, &counts.boxes,
                    &counts.buttons, &counts.toolButtons, &counts.lines, &counts.scrollAreas,
                    &counts.menus,   &counts.menuItems};
}

inline void writeCounts(const std::string& path, ControlCounts counts) {
  std::ofstream file(path);
  for (const int* count : pointersTo(counts)) file << *count << '\n';
}

inline ControlCounts readCounts(const std::string& path) {
  ControlCounts counts;
  std::ifstream file(path);
  for (int* count : pointersTo(counts)) file >> *count;
  if (!file) throw std::runtime_error("The controls of the editor were not counted.");
  return counts;
}

}  // namespace quillbox::bench
