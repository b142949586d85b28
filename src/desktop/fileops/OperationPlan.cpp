#include "OperationPlan.h"

#include <algorithm>

namespace desktop {
namespace {

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

} // namespace

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

std::optional<tOperationPlan> Plan(const platform::SHFILEOPSTRUCT& request)
{
    const auto operation = OperationOf(request.wFunc);
    std::vector<std::string> from = Entries(request.pFrom);
    std::vector<std::string> to = Entries(request.pTo);
    const bool bTargets = operation != FileOperation::Trash;
    if (!operation ||
        (bTargets && ((request.fFlags & platform::FOF_MULTIDESTFILES) == 0 || from.size() != to.size()))) {
        return std::nullopt;
    }
    tOperationPlan plan;
    plan.operation.operation = *operation;
    plan.operation.hwnd = request.hwnd;
    for (std::size_t n = 0; n < from.size(); ++n) {
        const tLook look = LookAt(from[n]);
        tEnding ending = IsRegular(look);
        if (!ending.IsDone()) {
            plan.notDone.push_back({std::move(from[n]), std::move(ending.sReason)});
            continue;
        }
        plan.operation.cyTotal += look.status.st_size;
        plan.files.push_back(
            {std::move(from[n]), bTargets ? std::move(to[n]) : std::string(), look.Identity(), n});
    }
    plan.operation.nFiles = plan.files.size();
    plan.operation.nMissing = plan.notDone.size();
    return plan;
}

} // namespace desktop
