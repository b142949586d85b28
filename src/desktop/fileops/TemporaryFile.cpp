// SPDX-License-Identifier: MIT
#include "TemporaryFile.h"

#include "HiddenName.h"
#include "Retried.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace desktop {

TemporaryFile::TemporaryFile(const HeldFolder& folder) : m_folder(folder)
{
    m_file = Descriptor(Retried(
        [&] { return openat(folder.Get(), ".", O_TMPFILE | O_RDWR | O_CLOEXEC, S_IRUSR | S_IWUSR); }));
    if (!m_file.IsOpen()) {
        m_file = MakeLocked(folder.Get(), HiddenKind::Copy, m_sName);
        m_nError = m_file.IsOpen() ? 0 : errno;
    }
}

TemporaryFile::~TemporaryFile()
{
    Remove();
}

int TemporaryFile::Finish() const
{
    const auto closeOnce = [&] {
        const int hAgain = fcntl(m_file.Get(), F_DUPFD_CLOEXEC, 0);
        return hAgain < 0 ? -1 : close(hAgain);
    };
    return Retried(closeOnce) == 0 && Retried([&] { return fsync(m_file.Get()); }) == 0 ? 0 : errno;
}

int TemporaryFile::Name(const tName& to)
{
    if (!m_sName.empty()) {
        const int nError = RenameWithoutReplacing({m_folder.Get(), m_sName}, to);
        if (nError == 0) {
            m_sName.clear();
        }
        return nError;
    }
    const std::string sThis = "/proc/self/fd/" + std::to_string(m_file.Get());
    const int nResult = Retried(
        [&] { return linkat(AT_FDCWD, sThis.c_str(), to.hFolder, to.sName.c_str(), AT_SYMLINK_FOLLOW); });
    return nResult == 0 ? 0 : errno;
}

bool TemporaryFile::Remove()
{
    const bool bGone =
        m_sName.empty() || Retried([&] { return unlinkat(m_folder.Get(), m_sName.c_str(), 0); }) == 0;
    m_sName.clear();
    return bGone;
}

} // namespace desktop
