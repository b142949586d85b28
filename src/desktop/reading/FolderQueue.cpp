// SPDX-License-Identifier: MIT
#include "FolderQueue.h"

#include "Paths.h"

#include <algorithm>
#include <utility>

namespace desktop {
namespace {

/// About 4 MB. More do not make the walk any faster.
constexpr std::size_t kMaxHeld = 32'768;

/// The number of entries that makes it worth waking the walk, which costs about as much as listing a small
/// folder.
constexpr std::size_t kMuch = 2'048;

} // namespace

FolderQueue::FolderQueue(const platform::tSearchedFolders& searched)
    : m_bHidden(searched.bHidden), m_nMaxSubfolders(searched.nMaxSubfolders)
{
    for (const std::string& sFolder : searched.folders) {
        const bool bSeparator = sFolder.ends_with(platform::kSeparator);
        m_order.push_back({.sPath = bSeparator ? sFolder : sFolder + platform::kSeparator, .listing = {}});
    }
    for (auto folder = m_order.end(); folder != m_order.begin();) {
        m_toList.push_back(--folder);
    }
}

std::vector<FolderQueue::Place>::const_reverse_iterator FolderQueue::NextToTake() const
{
    // Folders being listed stay in the list until they are replaced by their subfolders: at most one for each
    // worker.
    return std::find_if(m_toList.rbegin(), m_toList.rend(), [](Place folder) { return !folder->bTaken; });
}

bool FolderQueue::MayTake() const
{
    const auto next = NextToTake();
    return next != m_toList.rend() && (!m_bFull || *next == m_order.begin());
}

FolderQueue::Place FolderQueue::Take()
{
    const auto folder = *NextToTake();
    folder->bTaken = true;
    return folder;
}

void FolderQueue::Listed(Place folder, bool bOpened, platform::FolderListing listing,
                         std::list<tFolder> subfolders)
{
    std::vector<Place> toList;
    for (auto last = subfolders.end(); last != subfolders.begin();) {
        toList.push_back(--last);
    }
    const auto at = m_toList.erase(std::find(m_toList.rbegin(), m_toList.rend(), folder).base() - 1);
    m_toList.insert(at, toList.begin(), toList.end());
    m_order.splice(std::next(folder), subfolders);
    folder->bListed = true;
    folder->bOpened = bOpened;
    folder->listing = std::move(listing);
    m_nHeld += folder->listing.Count();
    m_bFull = m_bFull || m_nHeld >= kMaxHeld;
}

std::list<FolderQueue::tFolder> FolderQueue::Subfolders(const std::string& sPath,
                                                        const platform::FolderListing& listing) const
{
    std::list<tFolder> subfolders;
    for (std::size_t n = 0; n < listing.Count() && subfolders.size() < m_nMaxSubfolders; ++n) {
        const auto entry = listing.Entry(n);
        if (entry.bDirectory && (m_bHidden || !entry.bHidden)) {
            subfolders.push_back(
                {.sPath = std::string(sPath).append(entry.Name()) + platform::kSeparator, .listing = {}});
        }
    }
    return subfolders;
}

FolderQueue::tFolder& FolderQueue::Asked(const std::string& sPath)
{
    if (m_order.empty() || m_order.front().sPath != sPath) {
        m_order.push_front({.sPath = sPath, .listing = {}});
        m_toList.push_back(m_order.begin());
    }
    return m_order.front();
}

platform::FolderListing FolderQueue::Drop()
{
    platform::FolderListing listing = std::move(m_order.front().listing);
    m_nHeld -= listing.Count();
    m_bFull = m_bFull && m_nHeld > kMaxHeld / 2;
    m_order.pop_front();
    return listing;
}

bool FolderQueue::ReadyForMuch() const
{
    return !m_order.empty() && m_order.front().bListed && (m_nHeld >= kMuch || m_toList.empty());
}

} // namespace desktop
