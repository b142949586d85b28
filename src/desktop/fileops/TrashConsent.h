// SPDX-License-Identifier: MIT
#pragma once

#include "FileGroups.h"
#include "HeldFolders.h"
#include "OperationDialogs.h"
#include "OperationPlan.h"
#include "StayingCopies.h"

#include <cstddef>
#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace desktop {

/// Decides which files of a plan may go to the trash: the question to ask, and what the answer permits.
class TrashConsent
{
public:
    /// Removes from the plan what cannot go to the trash, and checks what stays of the rest. Calls `goOn`
    /// with the path before each look, and returns false if that does. `plan` and `folders` must outlive this
    /// object.
    bool Look(tOperationPlan& plan, platform::tFileGroups groups, HeldFolders& folders,
              const std::function<bool(const std::string&)>& goOn);

    /// The question to ask.
    [[nodiscard]] tConfirmation Question() const;

    /// The indexes in the plan of the files that may go after that answer.
    [[nodiscard]] std::vector<std::size_t> FilesFor(Consent consent) const;

    /// The copies that file number `nFile` of the plan has to be compared with before it goes, after that
    /// answer; empty if no comparison is needed.
    [[nodiscard]] std::vector<tStayingCopy> ToCompare(std::size_t nFile, Consent consent) const;

private:
    void TakeOutWhatHasNoTrash(HeldFolders& folders, platform::tFileGroups& groups);

    tOperationPlan* m_pPlan = nullptr; ///< set by Look
    std::optional<StayingCopies> m_staying;
    std::vector<tConcern> m_cannotGo;
};

} // namespace desktop
