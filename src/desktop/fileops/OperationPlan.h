// SPDX-License-Identifier: MIT
#pragma once

#include "FileIdentity.h"
#include "HeldFolders.h"
#include "OperationDialogs.h"
#include "ShellFiles.h"

#include <cstddef>
#include <functional>
#include <string>
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
    std::vector<tNotDone>
        notDone; ///< what the request names that is no file any more, or must stay where it is
    std::vector<std::string> inTrash; ///< those of them that lie in a trash
};

/// True if `request` can be carried out at all. `plan` then has what it asks for, and the files yet to be
/// looked at.
bool ReadRequest(const platform::SHFILEOPSTRUCT& request, tOperationPlan& plan);

/// Asked before each look at a file, with its path. False: the user has cancelled.
using LooksOn = std::function<bool(const std::string&, const tOperation&)>;

/// Looks at the files of `plan` and takes out those that cannot be dealt with. False if the user has
/// cancelled.
bool LookAtFiles(tOperationPlan& plan, HeldFolders& folders, const LooksOn& looksOn);

} // namespace desktop
