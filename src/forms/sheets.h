#pragma once

#include <QPageSize>
#include <QSizeF>
#include <string>

class QPagedPaintDevice;
class QPainter;

namespace quillbox {

/// Anything drawn on sheets of paper. The unit is a point, the origin the top left corner of the
/// printable area; font sizes are in pixels, which are points here.
class Sheets {
 public:
  virtual ~Sheets() = default;

  /// Returns the number of sheets of that size, at least one; `draw` draws these.
  virtual int layOut(QSizeF sheet) = 0;

  /// Draws a sheet, counted from 0.
  virtual void draw(QPainter& painter, int sheet) = 0;
};

/// Prints sheets on the system's printers, or to a PDF document.
class SheetPrinter {
 public:
  virtual ~SheetPrinter() = default;

  /// Asks where to print, and prints; false when the user cancels. `documentName`, in the path's
  /// own bytes, is offered for a document on disk. Run-time error 57 when printing failed.
  virtual bool printSheets(Sheets& sheets, const std::string& title,
                           const std::string& documentName) = 0;
};

/// Draws all sheets on a device, one after another; false when it refuses one.
bool paintSheets(Sheets& sheets, QPagedPaintDevice& device);

/// The usual paper size where the user lives: A4 or Letter.
QPageSize localPageSize();

}  // namespace quillbox
