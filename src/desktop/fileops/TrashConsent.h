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

/// Which files of a plan may go to the trash: what is to be asked, and what the answer means.
class TrashConsent
{
public:
    /// Takes what cannot go out of the plan, and looks at what stays of the rest. False if `goOn`, called
    /// before each look with the path, does not want it any more. `plan` and `folders` must outlive this
    /// object.
    bool Look(tOperationPlan& plan, platform::tFileGroups groups, HeldFolders& folders,
              const std::function<bool(const std::string&)>& goOn);

    /// What is to be asked.
    [[nodiscard]] tConfirmation Question() const;

    /// The places in the plan of the files that may go after that answer.
    [[nodiscard]] std::vector<std::size_t> FilesFor(Consent consent) const;

    /// What the `nFile`th file of the plan is to be compared with after that answer, before it goes; nothing
    /// if it goes as it is.
    [[nodiscard]] std::vector<tStayingCopy> ToCompare(std::size_t nFile, Consent consent) const;

private:
    void TakeOutWhatHasNoTrash(HeldFolders& folders, platform::tFileGroups& groups);

    tOperationPlan* m_pPlan = nullptr; ///< from Look on
    std::optional<StayingCopies> m_staying;
    std::vector<tConcern> m_cannotGo;
};

} // namespace desktop
