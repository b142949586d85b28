// SPDX-License-Identifier: MIT
#pragma once

#include "FileIdentity.h"
#include "HeldFolders.h"
#include "OperationDialogs.h"
#include "ShellFiles.h"

#include <cstddef>
#include <ctime>
#include <functional>
#include <string>
#include <vector>

namespace desktop {

/// A file to process.
struct tPlannedFile {
    std::string sPath;
    std::string sTarget;    ///< its destination; empty for the trash
    tFileIdentity identity; ///< at the start of the operation
    timespec changed{};     ///< its time of change (ctime) then; programs cannot set it
    std::size_t nAsked = 0; ///< its index in the request
};

/// The files of a request, and what to do with them.
struct tOperationPlan {
    tOperation operation;
    std::vector<tPlannedFile> files;
    std::vector<tNotDone> notDone;    ///< requested files that are gone or have to stay where they are
    std::vector<std::string> inTrash; ///< those of them that are in a trash
};

/// True if `request` can be carried out at all. `plan` then contains its operation and the files to look at.
bool ReadRequest(const platform::SHFILEOPSTRUCT& request, tOperationPlan& plan);

/// Called before each look at a file, with its path. Returns false if the user has cancelled.
using LooksOn = std::function<bool(const std::string&, const tOperation&)>;

/// Looks at the files of `plan` and removes those that cannot be processed. False if the user has cancelled.
bool LookAtFiles(tOperationPlan& plan, HeldFolders& folders, const LooksOn& looksOn);

} // namespace desktop
