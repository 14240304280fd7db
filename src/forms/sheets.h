#pragma once

#include <QPageSize>
#include <QSizeF>
#include <string>

class QPagedPaintDevice;
class QPainter;

namespace quillbox {

/// What is drawn on sheets of paper, as many as it needs. A unit is a point, the origin the top
/// left corner of what can be printed on; fonts have their sizes in pixels, which are points here.
class Sheets {
 public:
  virtual ~Sheets() = default;

  /// Says how many sheets of that size there are, at least one; `draw` draws those.
  virtual int layOut(QSizeF sheet) = 0;

  /// Draws a sheet, counted from 0.
  virtual void draw(QPainter& painter, int sheet) = 0;
};

/// What sheets are printed with: the system's printers, or a PDF document.
class SheetPrinter {
 public:
  virtual ~SheetPrinter() = default;

  /// Asks where to print, and prints; false when the user cancels. A document on disk is offered
  /// that name, in the path's own bytes. Run-time error 57 when it could not be printed.
  virtual bool printSheets(Sheets& sheets, const std::string& title,
                           const std::string& documentName) = 0;
};

/// Draws all sheets on a device that takes them one after the other; false when it refuses one.
bool paintSheets(Sheets& sheets, QPagedPaintDevice& device);

/// What paper is usual where the user lives: A4 or Letter.
QPageSize localPageSize();

}  // namespace quillbox
