// SPDX-License-Identifier: MIT
#include "TrashConsent.h"

#include "TrashFolders.h"

#include <array>
#include <map>
#include <unordered_map>
#include <utility>

namespace desktop {
namespace {

/// True if the contents of the file stay, as far as is known before the comparison.
bool HasCopy(std::optional<Stays> stays)
{
    return !stays || *stays == Stays::Copy || *stays == Stays::SameFile;
}

std::optional<Concern> ConcernOf(Stays stays)
{
    switch (stays) {
    case Stays::Nothing:
        return Concern::NoOtherCopy;
    case Stays::FileChanged:
        return Concern::FileChanged;
    case Stays::CopiesChanged:
        return Concern::CopiesChanged;
    case Stays::OtherSize:
        return Concern::OtherSize;
    case Stays::SameFile:
        return Concern::SameFileStays;
    case Stays::Copy:
        break;
    }
    return std::nullopt;
}

} // namespace

bool TrashConsent::Look(tOperationPlan& plan, platform::tFileGroups groups, HeldFolders& folders,
                        const std::function<bool(const std::string&)>& goOn)
{
    m_pPlan = &plan;
    if (!plan.inTrash.empty()) {
        m_cannotGo.push_back({Concern::InTrash, plan.inTrash});
    }
    TakeOutWhatHasNoTrash(folders, groups);
    m_staying.emplace(std::move(groups), plan.files, folders);
    return m_staying->Look(goOn);
}

/// Checks once per volume, not per file, whether there is a trash. Files without one count among those that
/// stay in their group.
void TrashConsent::TakeOutWhatHasNoTrash(HeldFolders& folders, platform::tFileGroups& groups)
{
    TrashFolders trashes;
    std::unordered_map<const HeldFolder*, std::string> reasons; // empty: there is a trash
    std::map<std::string, std::vector<std::string>> byVolume;
    std::vector<FolderPtr> held; // keeps the folders alive, so that their addresses stay unique
    std::vector<tPlannedFile> files;
    for (tPlannedFile& file : m_pPlan->files) {
        const FolderPtr pFolder = folders.Of(file.sPath);
        const auto [reason, bNew] = reasons.try_emplace(pFolder.get());
        if (bNew) {
            held.push_back(pFolder);
            reason->second = pFolder->Error() == 0 ? trashes.WhyNone(*pFolder) : "";
        }
        if (reason->second.empty()) {
            files.push_back(std::move(file));
            continue;
        }
        --m_pPlan->operation.nFiles;
        ++m_pPlan->operation.nMissing;
        m_pPlan->operation.cyTotal -= file.identity.cySize;
        byVolume[trashes.VolumeOf(pFolder->Path())].push_back(file.sPath);
        if (file.nAsked < groups.files.size() && groups.files[file.nAsked]) {
            const auto& row = *groups.files[file.nAsked];
            groups.groups[row.nGroup].push_back(row.shown);
        }
        m_pPlan->notDone.push_back({std::move(file.sPath), reason->second});
    }
    m_pPlan->files = std::move(files);
    for (auto& [sVolume, paths] : byVolume) {
        m_cannotGo.push_back({Concern::NoTrash, std::move(paths), sVolume});
    }
}

tConfirmation TrashConsent::Question() const
{
    // Most serious first.
    std::array<tConcern, 6> concerns{{{Concern::NoOtherCopy, {}},
                                      {Concern::FileChanged, {}},
                                      {Concern::CopiesChanged, {}},
                                      {Concern::OtherSize, {}},
                                      {Concern::NotCompared, {}},
                                      {Concern::SameFileStays, {}}}};
    const auto add = [&](Concern concern, const std::string& sPath) {
        for (tConcern& each : concerns) {
            if (each.concern == concern) {
                each.paths.push_back(sPath);
            }
        }
    };
    tConfirmation confirmation{m_pPlan->operation, m_staying->ComparedBy(),
                               FilesFor(Consent::WithCopy).size()};
    const bool bByContent = confirmation.comparedBy == platform::ComparedBy::Content;
    for (std::size_t n = 0; n < m_pPlan->files.size(); ++n) {
        const auto stays = m_staying->Of(n);
        const auto concern = stays ? ConcernOf(*stays) : std::nullopt;
        if (concern) {
            add(*concern, m_pPlan->files[n].sPath);
            // Also changed: what would be lost is not even the content found by the search.
            if (concern == Concern::NoOtherCopy && m_staying->HasChanged(n)) {
                add(Concern::FileChanged, m_pPlan->files[n].sPath);
            }
        } else if (stays && !bByContent) {
            add(Concern::NotCompared, m_pPlan->files[n].sPath);
        }
    }
    for (tConcern& each : concerns) {
        if (!each.paths.empty()) {
            confirmation.concerns.push_back(std::move(each));
        }
    }
    if (m_pPlan->files.size() == 1) {
        confirmation.sOnly = m_pPlan->files.front().sPath;
    }
    confirmation.concerns.insert(confirmation.concerns.end(), m_cannotGo.begin(), m_cannotGo.end());
    return confirmation;
}

std::vector<std::size_t> TrashConsent::FilesFor(Consent consent) const
{
    std::vector<std::size_t> files;
    for (std::size_t n = 0; n < m_pPlan->files.size(); ++n) {
        if (consent == Consent::All || (consent == Consent::WithCopy && HasCopy(m_staying->Of(n)))) {
            files.push_back(n);
        }
    }
    return files;
}

std::vector<tStayingCopy> TrashConsent::ToCompare(std::size_t nFile, Consent consent) const
{
    // After a search that did not compare contents, the user was told so before choosing "all".
    const bool bCompare =
        consent == Consent::WithCopy || m_staying->ComparedBy() == platform::ComparedBy::Content;
    const auto stays = m_staying->Of(nFile);
    return stays && (bCompare || *stays == Stays::SameFile) ? m_staying->CopiesOf(nFile)
                                                            : std::vector<tStayingCopy>();
}

} // namespace desktop
