// SPDX-License-Identifier: MIT
#include "TypeAhead.h"

#include "ShownText.h"

#include <QApplication>

#include <algorithm>

namespace desktop {
namespace {

char Lower(char c)
{
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}

/// Rejects nearly all rows by their first letter, without converting their texts.
bool BeginsOtherwise(std::string_view sName, char cFirst)
{
    const bool bPlain = !sName.empty() && sName[0] >= ' ' && sName[0] <= '~' && sName[0] != '\\';
    return bPlain && cFirst != '\0' && Lower(sName[0]) != cFirst;
}

} // namespace

bool TypeAhead::GoesOn() const
{
    return !m_sBeginning.isEmpty() && !m_sinceTyped.hasExpired(QApplication::keyboardInputInterval());
}

std::optional<std::size_t> TypeAhead::Find(const QString& sTyped)
{
    const bool bAnew = sTyped.isEmpty() || !GoesOn();
    m_sinceTyped.start();
    m_sBeginning = bAnew ? sTyped : m_sBeginning + sTyped;
    const std::size_t nCount = m_list.ListItems.Count();
    if (m_sBeginning.isEmpty() || nCount == 0) {
        return std::nullopt;
    }
    const bool bOneLetter = std::count(m_sBeginning.begin(), m_sBeginning.end(), m_sBeginning[0]) ==
                            static_cast<std::ptrdiff_t>(m_sBeginning.size());
    const QString sWanted = bOneLetter ? m_sBeginning.left(1) : m_sBeginning;
    const char cFirst = Lower(sWanted[0].toLatin1());
    const auto current = m_list.SelectedItem();
    const std::size_t nFirst = current ? current->Index() - 1 + (bAnew || bOneLetter ? 1 : 0) : 0;
    for (std::size_t n = 0; n < nCount; ++n) {
        const std::size_t nRow = (nFirst + n) % nCount;
        const std::string_view sName = m_list.ListItems(nRow + 1).Text();
        if (!BeginsOtherwise(sName, cFirst) && ShownText(sName).startsWith(sWanted, Qt::CaseInsensitive)) {
            return nRow;
        }
    }
    return std::nullopt;
}

} // namespace desktop
