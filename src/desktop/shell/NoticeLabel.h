// SPDX-License-Identifier: MIT
#pragma once

#include <QLabel>

namespace desktop {

/// A text that comes and goes while its window stays, as what is wrong with an answer. Assistive programs say
/// it when it comes, wherever the keyboard is.
class NoticeLabel final : public QLabel
{
public:
    NoticeLabel();

    /// Shows a text, or nothing.
    void Say(const QString& sText);
};

} // namespace desktop
