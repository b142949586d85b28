// SPDX-License-Identifier: MIT
#include "FolderListing.h"

#include <utility>

namespace platform {

void FolderListing::Clear()
{
    m_names.clear();
    m_entries.clear();
}

void FolderListing::Add(const tFindData& entry)
{
    const std::size_t nNameStart = m_names.size();
    m_names.append(entry.cFileName);
    m_entries.push_back({nNameStart, static_cast<std::uint32_t>(entry.cFileName.size()), entry.bDirectory,
                         entry.bHidden, entry.nFileSize, entry.ftLastWriteTime});
}

tFindData FolderListing::Entry(std::size_t n) const
{
    const tStored& stored = m_entries[n];
    return {std::string_view(m_names).substr(stored.nNameStart, stored.nNameField), stored.bDirectory,
            stored.bHidden, stored.nFileSize, stored.ftLastWriteTime};
}

void FolderListing::Reorder(const std::vector<std::uint32_t>& order)
{
    std::vector<tStored> entries;
    entries.reserve(order.size());
    for (const std::uint32_t n : order) {
        entries.push_back(m_entries[n]);
    }
    m_entries = std::move(entries);
}

} // namespace platform
