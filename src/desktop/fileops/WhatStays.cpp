// SPDX-License-Identifier: MIT
#include "WhatStays.h"

#include <algorithm>

namespace desktop {
namespace {

/// The number of copies kept for each size: two are enough to have one that is not the file itself; the
/// others are used if the first ones disappear or turn out to differ.
constexpr std::size_t kChoice = 4;

bool IsOf(const StayingFiles::tCopy& copy, const tSeenFile& file)
{
    return copy.identity.nDevice == file.identity.nDevice && copy.identity.nInode == file.identity.nInode;
}

bool HasOther(const std::vector<StayingFiles::tCopy>& copies, const tSeenFile& file)
{
    return std::any_of(copies.begin(), copies.end(), [&](const auto& copy) { return !IsOf(copy, file); });
}

void Keep(const StayingFiles::tCopy& copy, std::vector<StayingFiles::tCopy>& copies)
{
    if (copies.size() < kChoice) {
        copies.push_back(copy);
    }
}

} // namespace

void StayingFiles::Goes(const tSeenFile& file)
{
    if (file.bAsShown) {
        m_wanted.insert(file.identity.cySize);
    } else {
        m_bAnyChanged = true;
    }
}

void StayingFiles::Add(const tSeenFile& file, std::size_t nPlace)
{
    if (!m_staying.emplace(IdentityOf(file), nPlace).second) {
        return;
    }
    const tCopy copy{nPlace, file.identity};
    if (!file.bAsShown) {
        Keep(copy, m_changed);
        return;
    }
    Keep(copy, m_unchanged);
    Copies& copies = m_bySize[file.identity.cySize];
    Keep(copy, copies);
    if (copies.size() == kChoice) {
        m_wanted.erase(file.identity.cySize);
    }
}

bool StayingFiles::IsEnough() const
{
    // Whether a changed file stays under another name is known only after the last one.
    return m_wanted.empty() && !m_bAnyChanged;
}

Stays StayingFiles::Of(const tSeenFile& file) const
{
    const auto sameSize = m_bySize.find(file.identity.cySize);
    if (file.bAsShown && sameSize != m_bySize.end() && HasOther(sameSize->second, file)) {
        return Stays::Copy;
    }
    if (m_staying.contains(IdentityOf(file))) {
        return Stays::SameFile;
    }
    const bool bUnchanged = HasOther(m_unchanged, file);
    if (!bUnchanged && !HasOther(m_changed, file)) {
        return Stays::Nothing;
    }
    if (!file.bAsShown) {
        return Stays::FileChanged;
    }
    return bUnchanged ? Stays::OtherSize : Stays::CopiesChanged;
}

std::vector<StayingFiles::tCopy> StayingFiles::CopiesOf(const tSeenFile& file) const
{
    Copies copies;
    const Stays stays = Of(file);
    if (stays == Stays::Copy) {
        const Copies& sameSize = m_bySize.at(file.identity.cySize);
        std::copy_if(sameSize.begin(), sameSize.end(), std::back_inserter(copies),
                     [&](const tCopy& copy) { return !IsOf(copy, file); });
    } else if (stays == Stays::SameFile) {
        copies.push_back({m_staying.at(IdentityOf(file)), file.identity});
    }
    return copies;
}

} // namespace desktop
