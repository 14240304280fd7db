#pragma once

#include <QDialog>

class QCheckBox;
class QListWidget;
class QSpinBox;

namespace quillbox {

/// Asks where a listing is printed: on one of the system's printers, as a PDF document, which can
/// always be chosen, or to a text file.
class PrintDialog : public QDialog {
 public:
  enum class What {
    listing,
    sheets,  ///< drawn; no text file can be made of them
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
