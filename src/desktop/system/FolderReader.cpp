// SPDX-License-Identifier: MIT
#include "FolderReader.h"

#include <cstring>
#include <fcntl.h>
#include <sys/stat.h>

namespace desktop {
namespace {

constexpr std::size_t kBufferSize = 65'536;

} // namespace

FolderReader::FolderReader() : m_entries(std::make_unique_for_overwrite<char[]>(kBufferSize)) {}

void FolderReader::Start(int hFolder)
{
    m_hFolder = hFolder;
    m_nRead = 0;
    m_nNext = 0;
}

const dirent64* FolderReader::Next()
{
    for (;;) {
        if (m_nNext >= m_nRead) {
            m_nRead = getdents64(m_hFolder, m_entries.get(), kBufferSize);
            m_nNext = 0;
            if (m_nRead <= 0) {
                return nullptr;
            }
        }
        const auto* const pEntry = reinterpret_cast<const dirent64*>(m_entries.get() + m_nNext);
        m_nNext += pEntry->d_reclen;
        if (std::strcmp(pEntry->d_name, ".") != 0 && std::strcmp(pEntry->d_name, "..") != 0) {
            return pEntry;
        }
    }
}

unsigned char TypeOf(int hFolder, const dirent64& entry)
{
    if (entry.d_type != DT_UNKNOWN) {
        return entry.d_type;
    }
    struct stat status = {};
    return fstatat(hFolder, entry.d_name, &status, AT_SYMLINK_NOFOLLOW | AT_NO_AUTOMOUNT) == 0
               ? static_cast<unsigned char>(IFTODT(status.st_mode))
               : entry.d_type;
}

} // namespace desktop
