#pragma once

#include <QByteArray>
#include <QList>
#include <QMap>
#include <QString>
#include <QStringList>
#include <optional>
#include <string>

namespace quillbox {

/// Text typed on a form and not written.
struct KeptText {
  int item = 0;                   ///< number of the item, or kNewItem
  QByteArray stored;              ///< the item as it was in the file; empty for a new item
  QMap<QString, QString> inputs;  ///< the contents of each input, by its name
  QStringList list;               ///< the entries of the sub-list
  bool isTold = false;            ///< a status line has shown it to the user

  /// The same text, of any item.
  bool isSameText(const KeptText& other) const;

  /// The same text of the same item.
  bool isSame(const KeptText& other) const;
};

/// Texts of one collection that were typed and not written: at most ten, oldest first, and the one
/// on the form now. They are kept in a file of their own, so that they survive a killed process. A
/// file that is damaged or cannot be read counts as empty; texts that cannot be written last until
/// the program ends. Nothing here fails.
class KeptTexts {
 public:
  /// The texts of a collection, kept in a file in `folder`; without a folder they are not kept in a
  /// file. The folder need not exist. A text that was on the form when the program ended is now an
  /// ordinary one.
  KeptTexts(const QString& folder, const std::string& collection);

  /// The user's own folder.
  static QString userFolder();

  /// The newest text.
  std::optional<KeptText> newest() const;

  /// This text is on the form; none: everything on the form is written.
  void setOnForm(const std::optional<KeptText>& text);
  bool isOnForm() const { return onForm_.has_value(); }

  /// This text has left the form.
  void leave(const KeptText& text);

  /// This text was restored to the form, or written.
  void forget(const KeptText& text);

  /// The user has been told of the newest text.
  void tell();

 private:
  void add(const KeptText& text);
  void read();
  void write() const;

  QString collection_;
  QString file_;  // empty: none
  QList<KeptText> texts_;
  std::optional<KeptText> onForm_;
};

}  // namespace quillbox
