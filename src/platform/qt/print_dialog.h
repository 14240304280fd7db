#pragma once

#include <QDialog>

class QCheckBox;
class QListWidget;
class QSpinBox;

namespace quillbox {

/// Asks where to print a listing: on one of the system's printers, to a PDF document, which is
/// always available, or to a text file.
class PrintDialog : public QDialog {
 public:
  enum class What {
    listing,
    sheets,  ///< drawings, which cannot become a text file
  };

  explicit PrintDialog(const QString& title, What what = What::listing, QWidget* parent = nullptr);

  bool toTextFile() const;
  bool toPdf() const;
  QString printerName() const;
  int copies() const;

 private:
  void enableInputs();

  QListWidget* destination_;  // the PDF document, then the printers
  QSpinBox* copies_;
  QCheckBox* toFile_;
};

}  // namespace quillbox
