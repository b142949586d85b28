// SPDX-License-Identifier: MIT
#include "FolderEntry.h"

#include "Paths.h"
#include "Retried.h"

#include <fcntl.h>

namespace desktop {

std::string FolderEntry::Path() const
{
    const std::string& sFolder = m_pFolder->Path();
    return (sFolder == "/" ? "" : sFolder) + platform::kSeparator + m_name.sName;
}

tLook FolderEntry::Look() const
{
    return m_pFolder->Error() != 0 ? tLook{m_pFolder->Error(), {}} : LookAt(m_name.hFolder, m_name.sName);
}

Descriptor FolderEntry::Open(int nFlags, int& nError) const
{
    Descriptor file;
    nError = m_pFolder->Error();
    if (nError == 0) {
        file = Descriptor(Retried([&] {
            return openat(m_name.hFolder, m_name.sName.c_str(), nFlags | O_NOFOLLOW | O_NOCTTY | O_CLOEXEC);
        }));
        nError = file.IsOpen() ? 0 : errno;
    }
    return file;
}

} // namespace desktop
