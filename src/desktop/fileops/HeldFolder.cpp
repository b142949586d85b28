// SPDX-License-Identifier: MIT
#include "HeldFolder.h"

#include "Paths.h"
#include "Retried.h"
#include "SystemCalls.h"

#include <cerrno>
#include <fcntl.h>
#include <filesystem>
#include <unistd.h>

namespace desktop {
namespace {

/// The path without ".", ".." and redundant separators. Links are not followed, so only the text counts.
std::string Tidy(const std::string& sFolder)
{
    std::string sTidy = std::filesystem::path(sFolder).lexically_normal().string();
    while (sTidy.size() > 1 && sTidy.back() == platform::kSeparator) {
        sTidy.pop_back();
    }
    return sTidy;
}

} // namespace

HeldFolder::HeldFolder(const std::string& sPath) : m_sPath(Tidy(sPath))
{
    m_folder = OpenFolder(m_sPath, m_look.nError);
    if (m_folder.IsOpen()) {
        m_look = LookAt(m_folder.Get());
    }
}

bool HeldFolder::IsWhereItWas() const
{
    int nError = 0;
    const Descriptor now = OpenFolder(m_sPath, nError);
    return now.IsOpen() && LookAt(now.Get()).IsSameFileAs(m_look);
}

Descriptor Reopened(int hFolder)
{
    return Descriptor(Retried([&] { return openat(hFolder, ".", O_RDONLY | O_DIRECTORY | O_CLOEXEC); }));
}

int SyncFolder(const HeldFolder& folder, int hFile)
{
    const Descriptor open = Reopened(folder.Get());
    if (!open.IsOpen()) {
        // A folder with write but no read permission cannot be opened, so the whole volume is synced.
        return errno == EACCES && syncfs(hFile) == 0 ? 0 : errno;
    }
    // Some file systems do not support this for folders and return EINVAL.
    const bool bSynced = Retried([&] { return fsync(open.Get()); }) == 0 || errno == EINVAL;
    return bSynced ? 0 : errno;
}

} // namespace desktop
