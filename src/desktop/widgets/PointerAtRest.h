// SPDX-License-Identifier: MIT
#pragma once

#include <QApplication>
#include <QCursor>
#include <optional>

namespace desktop {

/// Restores the normal mouse pointer for its lifetime, while a question waits for its answer.
class PointerAtRest
{
public:
    PointerAtRest()
    {
        if (const QCursor* const pWorking = QApplication::overrideCursor()) {
            m_working = *pWorking;
            QApplication::restoreOverrideCursor();
        }
    }
    PointerAtRest(const PointerAtRest&) = delete;
    PointerAtRest& operator=(const PointerAtRest&) = delete;
    ~PointerAtRest()
    {
        if (m_working) {
            QApplication::setOverrideCursor(*m_working);
        }
    }

private:
    std::optional<QCursor> m_working;
};

} // namespace desktop
