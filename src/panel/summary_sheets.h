#pragma once

#include <QString>
#include <QStringList>
#include <vector>

#include "forms/sheets.h"
#include "overview/summary.h"

class QPainter;

namespace quillbox {

/// A printed summary: a title, the totals, and the bars of each grouping with their numbers.
class SummarySheets : public Sheets {
 public:
  /// Only the first `mostBars` bars of a grouping are drawn, followed by the number of further
  /// ones.
  SummarySheets(const SummaryFigures& figures, bool hasPrices, const QString& title,
                const QString& totals, std::size_t mostBars);

  int layOut(QSizeF sheet) override;
  void draw(QPainter& painter, int sheet) override;

  /// The height of a sheet that holds all of it.
  double wholeHeight() const;

 private:
  enum class Kind { title, text, heading, bar };
  struct Line {
    Kind kind;
    QString label;
    double part = 0;        ///< of the full width of a bar
    QStringList numbers{};  ///< beside the bar, or their headings
    int sheet = 0;
    double top = 0;
  };

  static double heightOf(const Line& line);
  void add(const BarGroup& group, std::size_t mostBars);
  QStringList numbersOf(const Totals& totals) const;
  void draw(QPainter& painter, const Line& line) const;

  bool hasPrices_;
  QString title_;
  std::vector<Line> lines_;
  QSizeF sheet_;
  int sheets_ = 1;
};

}  // namespace quillbox
