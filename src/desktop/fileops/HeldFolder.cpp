// SPDX-License-Identifier: MIT
#include "HeldFolder.h"

#include "Paths.h"
#include "Retried.h"
#include "SystemCalls.h"

#include <fcntl.h>
#include <filesystem>

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

} // namespace desktop
