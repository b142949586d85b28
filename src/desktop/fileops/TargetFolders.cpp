// SPDX-License-Identifier: MIT
#include "TargetFolders.h"

#include "Reasons.h"
#include "TrashLocations.h"

namespace desktop {
namespace {

tTargetFolder Opened(const std::string& sPath)
{
    auto pFolder = std::make_shared<HeldFolder>(sPath);
    if (pFolder->Error() != 0) {
        return {nullptr, Reason(pFolder->Error(), Step::Write), {}};
    }
    // A file put into a trash directly has no note there, and is lost when the trash is emptied.
    return {
        pFolder, TrashLocations().Contain(pFolder->Path()) ? "The destination is inside the trash." : "", {}};
}

} // namespace

tTargetFolder& TargetFolders::Get(const std::string& sPath)
{
    const auto known = m_folders.find(sPath);
    return known != m_folders.end() ? known->second : m_folders[sPath] = Opened(sPath);
}

std::vector<std::string> TargetFolders::Astray() const
{
    std::vector<std::string> astray;
    for (const auto& [sPath, target] : m_folders) {
        if (!target.done.empty() && !target.pFolder->IsWhereItWas()) {
            astray.insert(astray.end(), target.done.begin(), target.done.end());
        }
    }
    return astray;
}

} // namespace desktop
