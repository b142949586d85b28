// SPDX-License-Identifier: MIT
#include "NoticeLabel.h"

#include "SpokenRole.h"

namespace desktop {

NoticeLabel::NoticeLabel()
{
    setTextFormat(Qt::PlainText);
    setWordWrap(true);
    GiveSpokenRole(*this, QAccessible::Notification);
    hide();
}

void NoticeLabel::Say(const QString& sText)
{
    hide(); // assistive programs announce only a text that appears
    setText(sText);
    setAccessibleName(sText);
    setVisible(!sText.isEmpty());
}

} // namespace desktop
