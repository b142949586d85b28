// SPDX-License-Identifier: MIT
#pragma once

#include "ListView.h"

#include <QElapsedTimer>
#include <QString>

#include <cstddef>
#include <optional>

namespace desktop {

/// Finds the row of a list whose name, as displayed, starts with the typed letters, ignoring case. Letters
/// typed in quick succession form a longer prefix; typing the same letter repeatedly moves from row to row.
/// The search wraps around after the last row.
class TypeAhead
{
public:
    explicit TypeAhead(platform::ListView& list) : m_list(list) {}

    /// The row, counted from 0, that matches after `sTyped` has been typed, if any. An empty text starts a
    /// new prefix.
    [[nodiscard]] std::optional<std::size_t> Find(const QString& sTyped);

    /// Whether further input would extend the current prefix.
    [[nodiscard]] bool GoesOn() const;

private:
    platform::ListView& m_list;
    QString m_sBeginning;
    QElapsedTimer m_sinceTyped;
};

} // namespace desktop
