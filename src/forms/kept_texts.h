#pragma once

#include <QByteArray>
#include <QList>
#include <QMap>
#include <QString>
#include <QStringList>
#include <optional>
#include <string>

namespace quillbox {

/// What was typed on a form and not written.
struct KeptText {
  int item = 0;                   ///< number of the item, or kNewItem
  QByteArray stored;              ///< the item as the file held it; empty for a new item
  QMap<QString, QString> inputs;  ///< what each input held, by its name
  QStringList list;               ///< the entries of the sub-list
  bool isTold = false;            ///< a status line has told the user of it

  /// The same text, whatever item it is of.
  bool isSameText(const KeptText& other) const;

  /// The same text of the same item.
  bool isSame(const KeptText& other) const;
};

/// The texts of one collection that were typed and not written, oldest first, at most ten, and the
/// one that is on the form now. They are kept in a file of their own, so that they outlast a
/// program that was killed. A file that cannot be read, or is damaged, is as if never kept; what
/// cannot be written is forgotten at the program's end. Nothing here ever fails.
class KeptTexts {
 public:
  /// The texts of a collection, kept in a file in `folder`; without a folder they are not kept in a
  /// file. The folder need not exist. A text that was on the form when the program ended is an
  /// ordinary one by now.
  KeptTexts(const QString& folder, const std::string& collection);

  /// The user's own folder.
  static QString userFolder();

  /// The newest text.
  std::optional<KeptText> newest() const;

  /// The text is on the form; none: nothing on the form is unwritten.
  void setOnForm(const std::optional<KeptText>& text);
  bool isOnForm() const { return onForm_.has_value(); }

  /// The text has left the form.
  void leave(const KeptText& text);

  /// The text came back to the form, or was written.
  void forget(const KeptText& text);

  /// The user knows of the newest text.
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
