#pragma once

#include "FolderEntry.h"
#include "OperationDialogs.h"
#include "ShellFiles.h"

#include <optional>
#include <string>
#include <vector>

namespace desktop {

/// A file that is to be dealt with.
struct tPlannedFile {
    std::string sPath;
    std::string sTarget;    ///< where it goes; empty if into the trash
    tFileIdentity identity; ///< as it was when the operation began
};

/// What a request comes to.
struct tOperationPlan {
    tOperation operation;
    std::vector<tPlannedFile> files;
    std::vector<tNotDone> notDone; ///< what the request names that is no file any more
};

/// Looks at each file that `request` names. Nothing for a request that cannot be carried out.
std::optional<tOperationPlan> Plan(const platform::SHFILEOPSTRUCT& request);

} // namespace desktop
