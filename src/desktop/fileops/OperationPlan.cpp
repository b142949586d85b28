// SPDX-License-Identifier: MIT
#include "OperationPlan.h"

#include "FolderEntry.h"
#include "Paths.h"
#include "Reasons.h"
#include "TrashLocations.h"

#include <algorithm>
#include <optional>
#include <string_view>
#include <utility>

namespace desktop {
namespace {

/// The entries of a list in which each is followed by a NUL; ends at an empty entry.
std::vector<std::string> Entries(std::string_view sList)
{
    std::vector<std::string> entries;
    while (!sList.empty() && sList.front() != '\0') {
        const std::size_t nEnd = std::min(sList.find('\0'), sList.size());
        entries.emplace_back(sList.substr(0, nEnd));
        sList.remove_prefix(std::min(nEnd + 1, sList.size()));
    }
    return entries;
}

std::optional<FileOperation> OperationOf(unsigned wFunc)
{
    switch (wFunc) {
    case platform::FO_DELETE:
        return FileOperation::Trash;
    case platform::FO_MOVE:
        return FileOperation::Move;
    case platform::FO_COPY:
        return FileOperation::Copy;
    default:
        return std::nullopt;
    }
}

constexpr const char* kInTrash =
    "It lies in a trash already. Restore it from there, or empty the trash if it "
    "is to be gone for good.";

/// Looks at the entry; the result says why it has to stay where it is, if so.
tEnding Found(const FolderEntry& entry, FileOperation operation, bool bInTrash, tLook& look)
{
    const int nError = entry.Folder().Error();
    if (nError != 0) {
        return tEnding::NotDone(Reason(nError, Step::Enter));
    }
    look = entry.Look();
    tEnding ending = IsRegular(look);
    // Removing a file or a note from a trash directly would leave an orphan that cannot be restored.
    if (ending.IsDone() && bInTrash && operation != FileOperation::Copy) {
        return tEnding::NotDone(operation == FileOperation::Trash
                                    ? kInTrash
                                    : "It is in the trash. It can be restored from there.");
    }
    return ending;
}

} // namespace

bool ReadRequest(const platform::SHFILEOPSTRUCT& request, tOperationPlan& plan)
{
    const auto operation = OperationOf(request.wFunc);
    std::vector<std::string> from = Entries(request.pFrom);
    std::vector<std::string> to = Entries(request.pTo);
    const bool bTargets = operation != FileOperation::Trash;
    if (!operation ||
        (bTargets && ((request.fFlags & platform::FOF_MULTIDESTFILES) == 0 || from.size() != to.size()))) {
        return false;
    }
    plan.operation.operation = *operation;
    plan.operation.hwnd = request.hwnd;
    plan.files.resize(from.size());
    for (std::size_t n = 0; n < from.size(); ++n) {
        plan.files[n].sPath = std::move(from[n]);
        plan.files[n].nAsked = n;
        plan.files[n].sTarget = bTargets ? std::move(to[n]) : std::string();
    }
    return true;
}

bool LookAtFiles(tOperationPlan& plan, HeldFolders& folders, const LooksOn& looksOn)
{
    tOperation& operation = plan.operation;
    std::vector<tPlannedFile> found;
    TrashLocations trashes;
    for (tPlannedFile& file : plan.files) {
        if (!looksOn(file.sPath, operation)) {
            return false;
        }
        const FolderPtr pFolder = folders.Of(file.sPath);
        const bool bInTrash = pFolder->Error() == 0 && trashes.Contain(pFolder->Path());
        tLook look;
        tEnding ending =
            Found(FolderEntry(pFolder, platform::NameIn(file.sPath)), operation.operation, bInTrash, look);
        if (!ending.IsDone()) {
            if (bInTrash && operation.operation == FileOperation::Trash) {
                plan.inTrash.push_back(file.sPath);
            }
            plan.notDone.push_back({std::move(file.sPath), std::move(ending.sReason)});
            ++operation.nMissing;
            continue;
        }
        file.identity = look.Identity();
        file.changed = look.status.st_ctim;
        operation.cyTotal += look.status.st_size;
        ++operation.nFiles;
        found.push_back(std::move(file));
    }
    plan.files = std::move(found);
    return true;
}

} // namespace desktop
