// SPDX-License-Identifier: MIT
#include "TextStore.h"

#include <algorithm>

namespace platform {
namespace {

constexpr std::size_t kBlockSize = 65'536;

} // namespace

StoredText TextStore::Add(std::string_view sText)
{
    if (sText.empty()) {
        return {};
    }
    const auto nLength = static_cast<std::uint32_t>(sText.size());
    const std::size_t nNeeded = sizeof nLength + sText.size();
    if (nNeeded > m_nFree) {
        const std::size_t nBlock = std::max(kBlockSize, nNeeded);
        m_blocks.push_back(std::make_unique_for_overwrite<char[]>(nBlock));
        m_pFree = m_blocks.back().get();
        m_nFree = nBlock;
    }
    char* const pText = m_pFree;
    std::memcpy(pText, &nLength, sizeof nLength);
    std::memcpy(pText + sizeof nLength, sText.data(), sText.size());
    m_pFree += nNeeded;
    m_nFree -= nNeeded;
    return StoredText(pText);
}

void TextStore::Clear()
{
    m_blocks.clear();
    m_pFree = nullptr;
    m_nFree = 0;
}

} // namespace platform
