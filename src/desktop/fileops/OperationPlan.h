#pragma once

#include "FolderEntry.h"
#include "OperationDialogs.h"
#include "ShellFiles.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace desktop {

/// A file that is to be dealt with.
struct tPlannedFile {
    std::string sPath;
    std::string sTarget;    ///< where it goes; empty if into the trash
    tFileIdentity identity; ///< as it was when the operation began
    std::size_t nAsked = 0; ///< its place among the files of the request
};

/// What a request comes to.
struct tOperationPlan {
    tOperation operation;
    std::vector<tPlannedFile> files;
    std::vector<tNotDone> notDone; ///< what the request names that is no file any more
};

/// The entries of a list in which each is followed by a NUL; an empty one ends it.
std::vector<std::string> Entries(std::string_view sList);

/// Looks at each file that `request` names. Nothing for a request that cannot be carried out.
std::optional<tOperationPlan> Plan(const platform::SHFILEOPSTRUCT& request);

} // namespace desktop
