// SPDX-License-Identifier: MIT
#include "mCommon.h"

#include "FormMembers.h"
#include "System.h"

#include <algorithm>
#include <charconv>

namespace search {

FileTable FileList;
std::int32_t FileCount = 0;
bool bStopped = false;

tChecksumText::tChecksumText(std::uint32_t nChecksum)
{
    const auto end = std::to_chars(m_aDigits.begin(), m_aDigits.end(), nChecksum, 16).ptr;
    m_nLength = static_cast<std::uint8_t>(end - m_aDigits.begin());
    std::transform(m_aDigits.begin(), end, m_aDigits.begin(),
                   [](char c) { return c >= 'a' ? static_cast<char>(c - 'a' + 'A') : c; });
}

void FileTable::Resize(std::size_t nCount)
{
    m_entries.resize(std::max<std::size_t>(nCount, 1));
}

void FileTable::Clear()
{
    m_entries = std::vector<tFileEntry>(1);
    m_mounts.clear();
    texts.Clear();
}

FileTable::tFolder FileTable::AddFolder(std::string_view sPath, const platform::tFolderIdentity& identity)
{
    // Within one mount a folder has only one path, so an equal number there is a duplicate number from the
    // file system, not the same folder.
    const auto [first, bNew] = m_mounts.try_emplace({identity.nDevice, identity.nNumber}, identity.nMount);
    return {texts.Add(sPath), !bNew && first->second != identity.nMount};
}

bool StoppedAfterYield(std::int64_t nSteps)
{
    platform::DoEvents(nSteps);
    return bStopped;
}

void SetWorking(bool bWorking)
{
    // The commands are updated first, while everything else is unchanged.
    frmMain().CheckMenu();
    platform::System().screen->SetMousePointer(bWorking ? platform::MousePointer::Hourglass
                                                        : platform::MousePointer::Default);
    frmMain().StatusBar1.Panels(1).SetText(bWorking ? "Working..." : "Done");
    // Disabling the form is all that prevents a second operation.
    frmMain().form.SetEnabled(!bWorking);
    bStopped = !bWorking;
}

void ClearResults()
{
    auto& rows = frmMain().lvFiles.ListItems;
    if (rows.Count() > 0) {
        rows.Clear();
    }
    frmMain().StatusBar1.Panels(2).SetText("0");
    FileList.Clear();
    FileCount = 0;
}

} // namespace search
