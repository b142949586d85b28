// SPDX-License-Identifier: MIT
#pragma once

#include "ListView.h"

#include <QElapsedTimer>
#include <QString>

#include <cstddef>
#include <optional>

namespace desktop {

/// Finds the row of a list whose name, as it is shown, begins with what the user types, whatever the letter
/// case. Letters that follow each other quickly make a longer beginning; one letter again and again leads
/// from row to row. Below the last row the search goes on with the first.
class TypeAhead
{
public:
    explicit TypeAhead(platform::ListView& list) : m_list(list) {}

    /// What has been typed leads to this row, counted from 0, or to none. With nothing typed it begins anew.
    [[nodiscard]] std::optional<std::size_t> Find(const QString& sTyped);

    /// Whether what is typed now would make a beginning longer.
    [[nodiscard]] bool GoesOn() const;

private:
    platform::ListView& m_list;
    QString m_sBeginning;
    QElapsedTimer m_sinceTyped;
};

} // namespace desktop
