// SPDX-License-Identifier: MIT
#include "HeldFolders.h"

#include "Paths.h"

#include <cerrno>

namespace desktop {
namespace {

/// A process can have 1,024 descriptors, and a batch of files for the trash needs a few hundred.
constexpr std::size_t kMostHeld = 200;

} // namespace

FolderPtr HeldFolders::Of(const std::string& sFilePath)
{
    return Get(platform::FolderPart(sFilePath));
}

FolderPtr HeldFolders::Get(const std::string& sFolder)
{
    tKnown& known = m_known[sFolder];
    if (known.pHeld) {
        return known.pHeld;
    }
    if (m_nHeld >= kMostHeld) {
        for (auto& [sPath, each] : m_known) {
            each.pHeld.reset();
        }
        m_nHeld = 0;
    }
    auto pFolder = std::make_shared<HeldFolder>(sFolder);
    const bool bKnown = known.look.nError == 0;
    if (pFolder->Error() == 0 && bKnown && !pFolder->Look().IsSameFileAs(known.look)) {
        return std::make_shared<HeldFolder>(ESTALE);
    }
    if (pFolder->Error() == 0) {
        known = {pFolder->Look(), pFolder};
        ++m_nHeld;
    }
    return pFolder;
}

} // namespace desktop
