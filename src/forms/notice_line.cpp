#include "forms/notice_line.h"

#include <QHBoxLayout>
#include <QPushButton>

#include "forms/accessible_role.h"
#include "forms/controls.h"
#include "forms/elided_label.h"
#include "forms/qt_text.h"

namespace quillbox {

NoticeLine::NoticeLine(int element)
    : label_(new ElidedLabel(Qt::ElideMiddle)),
      button_(makeButton(controlName("cmdNotice", element), QStringLiteral("OK"))) {
  label_->setObjectName(controlName("lblNotice", element));
  setFrameShape(QFrame::StyledPanel);
  setAccessibleRole(*this, QAccessible::Grouping);
  setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
  auto* row = new QHBoxLayout(this);
  const int margin = row->spacing();
  row->setContentsMargins(margin, margin / 2, margin / 2, margin / 2);
  row->addWidget(label_, 1);
  row->addWidget(button_);
}

void NoticeLine::show(const Notice& notice) {
  const QString text = fromPath(notice.text);
  label_->showText(text);
  const QString caption = fromUtf8Text(notice.button);
  button_->setText(caption);
  button_->setAccessibleName(withoutAccessKey(caption));
  button_->setAccessibleDescription(text);
  explain(*button_, text);
  button_->setVisible(!caption.isEmpty());
  press_ = notice.press;
  setVisible(true);
}

}  // namespace quillbox
