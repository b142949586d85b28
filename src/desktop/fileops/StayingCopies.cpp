// SPDX-License-Identifier: MIT
#include "StayingCopies.h"

#include "Texts.h"
#include "TrashFolders.h"

namespace desktop {
StayingCopies::StayingCopies(platform::tFileGroups groups, const std::vector<tPlannedFile>& files,
                             HeldFolders& folders)
    : m_groups(std::move(groups)), m_files(files), m_folders(folders), m_staying(m_groups.groups.size())
{
}

bool StayingCopies::Look(const std::function<bool(const std::string&)>& goOn)
{
    LookAtGoing();
    for (std::size_t n = 0; n < m_staying.size(); ++n) {
        const auto& rows = m_groups.groups[n];
        for (std::size_t nRow = 0; nRow < rows.size() && !m_staying[n].IsEnough(); ++nRow) {
            if (!goOn(rows[nRow].FullPath())) {
                return false;
            }
            LookAtStaying(rows[nRow], nRow, m_staying[n]);
        }
    }
    return true;
}

void StayingCopies::LookAtGoing()
{
    m_seen.reserve(m_files.size());
    m_byInode.reserve(m_files.size());
    for (std::size_t n = 0; n < m_files.size(); ++n) {
        const RowFile& row = RowOf(n);
        const tFileIdentity& identity = m_files[n].identity;
        m_seen.push_back({identity, row && IsAsShown(identity, row->shown)});
        m_byInode.emplace(identity.nInode, n);
        if (row) {
            m_staying[row->nGroup].Goes(m_seen.back());
        }
    }
}

void StayingCopies::LookAtStaying(const platform::tShownFile& shown, std::size_t nPlace, StayingFiles& group)
{
    const FolderEntry entry(m_folders.Get(std::string(shown.sFolder.View())),
                            std::string(shown.sName.View()));
    const tLook look = entry.Look();
    if (IsRegular(look).IsDone() && !LiesInTrash(entry.Folder()) && !IsGoing(entry, look)) {
        group.Add({look.Identity(), IsAsShown(look.Identity(), shown)}, nPlace);
    }
}

/// True if size and time are as shown in the row.
bool StayingCopies::IsAsShown(const tFileIdentity& identity, const platform::tShownFile& shown)
{
    if (platform::FormatNumber(identity.cySize) != shown.sSize.View()) {
        return false;
    }
    // Formatting the time takes most of the time here, and copies often have the same time as their original.
    if (m_sDate.empty() || m_nDateOf != identity.nSeconds) {
        m_nDateOf = identity.nSeconds;
        m_sDate = platform::FormatDateTime(DateOf(identity));
    }
    return m_sDate == shown.sDate.View();
}

/// True if the file is one of those that go, reached through another path: then it goes as well.
bool StayingCopies::IsGoing(const FolderEntry& entry, const tLook& look) const
{
    const auto [first, last] = m_byInode.equal_range(look.status.st_ino);
    for (auto it = first; it != last; ++it) {
        const tPlannedFile& file = m_files[it->second];
        if (file.identity.nDevice != look.status.st_dev) {
            continue;
        }
        // Without a second link it cannot be another name: a file is mounted on another one, or the file
        // system gives all files one number.
        const bool bOnlyName = look.status.st_nlink < 2;
        if (bOnlyName || (NameOf(file.sPath) == entry.Name().sName &&
                          m_folders.Of(file.sPath)->Look().IsSameFileAs(entry.Folder().Look()))) {
            return true;
        }
    }
    return false;
}

bool StayingCopies::LiesInTrash(const HeldFolder& folder)
{
    const auto [it, bNew] = m_trashes.try_emplace(folder.Path(), false);
    if (bNew) {
        it->second = IsInTrash(folder.Path());
    }
    return it->second;
}

std::optional<Stays> StayingCopies::Of(std::size_t nFile) const
{
    const RowFile& row = RowOf(nFile);
    return row ? std::optional(m_staying[row->nGroup].Of(m_seen[nFile])) : std::nullopt;
}

std::vector<tStayingCopy> StayingCopies::CopiesOf(std::size_t nFile) const
{
    std::vector<tStayingCopy> copies;
    if (const RowFile& row = RowOf(nFile)) {
        const auto& rows = m_groups.groups[row->nGroup];
        for (const auto& copy : m_staying[row->nGroup].CopiesOf(m_seen[nFile])) {
            copies.push_back({rows[copy.nPlace].FullPath(), copy.identity});
        }
    }
    return copies;
}

} // namespace desktop
