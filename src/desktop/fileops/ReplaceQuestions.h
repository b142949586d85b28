#pragma once

#include "FolderEntry.h"
#include "OperationDialogs.h"

#include <optional>
#include <string>

namespace desktop {

/// What the user wants where a file stands in the way; asked file by file until an answer is meant for all.
class ReplaceQuestions
{
public:
    /// `dialogs` must outlive it.
    explicit ReplaceQuestions(OperationDialogs& dialogs) : m_dialogs(dialogs) {}

    tReplaceAnswer::Choice Ask(const std::string& sSource, const tLook& source, const std::string& sTarget,
                               const tLook& target);

private:
    OperationDialogs& m_dialogs;
    std::optional<tReplaceAnswer::Choice> m_forAll;
};

} // namespace desktop
