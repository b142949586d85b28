// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>

namespace desktop {

/// Gives the keyboard of a window that goes back to the one that it belongs to. Window managers do this by
/// themselves, but not everybody has one.
class KeyboardReturn final : public QObject
{
public:
    KeyboardReturn();

    bool eventFilter(QObject* pWatched, QEvent* pEvent) override;
};

} // namespace desktop
