// SPDX-License-Identifier: MIT
#include "TrashConsent.h"

#include "FileSystem.h"
#include "TrashFolders.h"

#include <array>
#include <unordered_map>
#include <utility>

namespace desktop {
namespace {

/// True if the contents of the file stay, as far as is known before it is compared.
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

bool TrashConsent::Look(platform::tFileGroups groups, const std::function<bool()>& goOn)
{
    if (!TakeOutWhatLiesInTrash(goOn)) {
        return false;
    }
    m_staying.emplace(std::move(groups), m_plan.files);
    return m_staying->Look(goOn);
}

bool TrashConsent::TakeOutWhatLiesInTrash(const std::function<bool()>& goOn)
{
    std::unordered_map<std::string, bool> folders;
    std::vector<tPlannedFile> files;
    for (tPlannedFile& file : m_plan.files) {
        if (!goOn()) {
            return false;
        }
        const auto [folder, bNew] =
            folders.try_emplace(file.sPath.substr(0, file.sPath.rfind(platform::kSeparator) + 1), false);
        if (bNew) {
            folder->second = IsInTrash(folder->first);
        }
        if (!folder->second) {
            files.push_back(std::move(file));
            continue;
        }
        --m_plan.operation.nFiles;
        ++m_plan.operation.nMissing;
        m_plan.operation.cyTotal -= file.identity.cySize;
        m_inTrash.paths.push_back(file.sPath);
        m_plan.notDone.push_back({std::move(file.sPath),
                                  "It lies in a trash already. Restore it from there, or "
                                  "empty the trash if it is to be gone for good."});
    }
    m_plan.files = std::move(files);
    return true;
}

tConfirmation TrashConsent::Question() const
{
    // The gravest first.
    std::array<tConcern, 7> concerns{{{Concern::NoOtherCopy, {}},
                                      {Concern::FileChanged, {}},
                                      {Concern::CopiesChanged, {}},
                                      {Concern::OtherSize, {}},
                                      {Concern::NotCompared, {}},
                                      {Concern::SameFileStays, {}},
                                      m_inTrash}};
    const auto add = [&](Concern concern, const std::string& sPath) {
        for (tConcern& each : concerns) {
            if (each.concern == concern) {
                each.paths.push_back(sPath);
            }
        }
    };
    tConfirmation confirmation{m_plan.operation, m_staying->ComparedBy(), FilesFor(Consent::WithCopy).size()};
    const bool bByContent = confirmation.comparedBy == platform::ComparedBy::Content;
    for (std::size_t n = 0; n < m_plan.files.size(); ++n) {
        const auto stays = m_staying->Of(n);
        const auto concern = stays ? ConcernOf(*stays) : std::nullopt;
        if (concern) {
            add(*concern, m_plan.files[n].sPath);
        } else if (stays && !bByContent) {
            add(Concern::NotCompared, m_plan.files[n].sPath);
        }
    }
    for (tConcern& each : concerns) {
        if (!each.paths.empty()) {
            confirmation.concerns.push_back(std::move(each));
        }
    }
    return confirmation;
}

std::vector<std::size_t> TrashConsent::FilesFor(Consent consent) const
{
    std::vector<std::size_t> files;
    for (std::size_t n = 0; n < m_plan.files.size(); ++n) {
        if (consent == Consent::All || (consent == Consent::WithCopy && HasCopy(m_staying->Of(n)))) {
            files.push_back(n);
        }
    }
    return files;
}

std::vector<tStayingCopy> TrashConsent::ToCompare(std::size_t nFile, Consent consent) const
{
    // Who says "all" where the search did not go by contents has been told so.
    const bool bCompare =
        consent == Consent::WithCopy || m_staying->ComparedBy() == platform::ComparedBy::Content;
    const auto stays = m_staying->Of(nFile);
    return stays && (bCompare || *stays == Stays::SameFile) ? m_staying->CopiesOf(nFile)
                                                            : std::vector<tStayingCopy>();
}

} // namespace desktop
