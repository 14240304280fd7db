#pragma once

#include <QString>
#include <QStringList>
#include <vector>

#include "forms/sheets.h"
#include "overview/summary.h"

class QPainter;

namespace quillbox {

/// A summary as it is printed: a title, the totals, and the bars of each grouping with their
/// numbers beside them.
class SummarySheets : public Sheets {
 public:
  /// Of the bars of a grouping only the first `mostBars` are drawn, and how many more there are is
  /// said.
  SummarySheets(const SummaryFigures& figures, bool hasPrices, const QString& title,
                const QString& totals, std::size_t mostBars);

  int layOut(QSizeF sheet) override;
  void draw(QPainter& painter, int sheet) override;

  /// How high a sheet must be that all of it is on one.
  double wholeHeight() const;

 private:
  enum class Kind { title, text, heading, bar };
  struct Line {
    Kind kind;
    QString label;
    double part = 0;        ///< of the width for bars
    QStringList numbers{};  ///< beside the bar, or what they are
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
