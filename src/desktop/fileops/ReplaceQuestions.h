#pragma once

#include "ContentComparison.h"
#include "FolderEntry.h"
#include "OperationDialogs.h"

#include <functional>
#include <optional>
#include <string>

namespace desktop {

/// What the user wants where a file stands in the way; asked file by file until an answer is meant for all.
class ReplaceQuestions
{
public:
    /// `dialogs` must outlive it.
    explicit ReplaceQuestions(OperationDialogs& dialogs) : m_dialogs(dialogs) {}

    /// `compare` is called if the user is asked: whether both are the same to the byte.
    tReplaceAnswer::Choice Ask(const std::string& sSource, const tLook& source, const std::string& sTarget,
                               const tLook& target,
                               const std::function<ContentComparison::Result()>& compare);

private:
    OperationDialogs& m_dialogs;
    std::optional<tReplaceAnswer::Choice> m_forAll;
};

} // namespace desktop
