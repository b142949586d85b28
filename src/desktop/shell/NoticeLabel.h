// SPDX-License-Identifier: MIT
#pragma once

#include <QLabel>

namespace desktop {

/// A text that appears and disappears in an open window, for example what is wrong with an input. Assistive
/// programs announce it when it appears, wherever the focus is.
class NoticeLabel final : public QLabel
{
public:
    NoticeLabel();

    /// Shows a text, or nothing if it is empty.
    void Say(const QString& sText);
};

} // namespace desktop
