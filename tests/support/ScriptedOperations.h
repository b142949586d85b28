// SPDX-License-Identifier: MIT
#pragma once

#include "OperationDialogs.h"
#include "ShellFileOperations.h"

#include <functional>
#include <map>
#include <utility>

namespace support {

using Choice = desktop::tReplaceAnswer::Choice;

/// A user whose answers are known beforehand, and what he was shown.
class ScriptedOperations final : public desktop::OperationDialogs
{
public:
    desktop::Consent Confirm(const desktop::tConfirmation& asked) override
    {
        const desktop::tOperation& operation = asked.operation;
        confirmation = asked;
        shown.push_back("Confirm " + std::to_string(operation.nFiles) + ' ' +
                        std::to_string(operation.cyTotal));
        onConfirm();
        return consent;
    }
    bool AskRoom(const desktop::tOperation&, const desktop::tRoom&) override
    {
        shown.emplace_back("AskRoom");
        return true;
    }
    desktop::tReplaceAnswer AskReplace(const desktop::tFileFacts& source, const desktop::tFileFacts& target,
                                       bool bIdentical) override
    {
        shown.push_back(bIdentical ? "AskReplace identical" : "AskReplace");
        questions.emplace_back(source, target);
        return answer;
    }
    void Started(const desktop::tOperation&) override { shown.emplace_back("Started"); }
    bool Progress(const desktop::tOperationProgress& progress) override
    {
        return !onProgress || onProgress(progress);
    }
    bool Finished(const desktop::tOperation& operation, const desktop::tOperationOutcome& result) override
    {
        shown.push_back("Finished " + std::to_string(operation.nFiles) + " and " +
                        std::to_string(operation.nMissing));
        outcome = result;
        return false;
    }

    desktop::Consent consent = desktop::Consent::All;
    desktop::tConfirmation confirmation;
    std::function<void()> onConfirm = [] {};
    desktop::tReplaceAnswer answer;
    std::function<bool(const desktop::tOperationProgress&)> onProgress;

    std::vector<std::string> shown; ///< what was called, Progress left out
    std::vector<std::pair<desktop::tFileFacts, desktop::tFileFacts>> questions;
    desktop::tOperationOutcome outcome;
};

/// The reasons given, by the name of the file.
inline std::map<std::string, std::string> Reasons(const desktop::tOperationOutcome& outcome)
{
    std::map<std::string, std::string> reasons;
    for (const auto& notDone : outcome.notDone) {
        reasons[notDone.sPath.substr(notDone.sPath.rfind('/') + 1)] = notDone.sReason;
    }
    return reasons;
}

/// A request for some files, for moves and copies into one folder.
inline platform::SHFILEOPSTRUCT Request(unsigned wFunc, const std::vector<std::string>& paths,
                                        const std::string& sFolder = "")
{
    platform::SHFILEOPSTRUCT request;
    request.wFunc = wFunc;
    request.fFlags = wFunc == platform::FO_DELETE ? platform::FOF_ALLOWUNDO : platform::FOF_MULTIDESTFILES;
    for (const auto& sPath : paths) {
        request.pFrom += sPath + '\0';
        if (!sFolder.empty()) {
            request.pTo += sFolder + sPath.substr(sPath.rfind('/')) + '\0';
        }
    }
    return request;
}

} // namespace support
