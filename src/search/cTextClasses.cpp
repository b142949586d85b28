// SPDX-License-Identifier: MIT
#include "cTextClasses.h"

namespace search {

std::uint32_t cTextClasses::ClassOf(platform::StoredText sText)
{
    m_fold(sText.View(), m_sFolded);
    const std::uint64_t nHash = platform::HashBytes(m_sFolded);
    const auto isIt = [&](std::uint32_t nClass) {
        const std::string_view sMember = m_members[nClass].View();
        if (sMember == sText.View()) {
            return true;
        }
        m_fold(sMember, m_sOtherFolded);
        return m_sOtherFolded == m_sFolded;
    };
    if (const auto* pClass = m_byFoldedText.Find(nHash, isIt)) {
        return *pClass;
    }
    const auto nClass = static_cast<std::uint32_t>(m_members.size());
    m_byFoldedText.Insert(nHash, nClass);
    m_members.push_back(sText);
    return nClass;
}

} // namespace search
