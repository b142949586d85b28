// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>

namespace desktop {

/// When a window closes, gives the keyboard focus back to its owner. Window managers do this, but there may
/// not be one.
class KeyboardReturn final : public QObject
{
public:
    KeyboardReturn();

    bool eventFilter(QObject* pWatched, QEvent* pEvent) override;
};

} // namespace desktop
