// SPDX-License-Identifier: MIT
#pragma once

#include "ContentComparison.h"
#include "FileIdentity.h"
#include "OperationDialogs.h"

#include <functional>
#include <optional>
#include <string>
#include <utility>

namespace desktop {

/// The user's decisions about existing files; asks for each file until an answer applies to all.
class ReplaceQuestions
{
public:
    /// Asks about the source and the existing file; the flag says whether their contents are identical.
    using Asks = std::function<tReplaceAnswer(const tFileFacts&, const tFileFacts&, bool)>;
    /// Compares the contents; called only if the user is asked.
    using Compares = std::function<ContentComparison::Result()>;

    explicit ReplaceQuestions(Asks asks) : m_asks(std::move(asks)) {}

    /// What to do with `source` if `target` exists: the answer that applies to all, or else that of a
    /// question.
    tReplaceAnswer::Choice Ask(const std::string& sSource, const tLook& source, const std::string& sTarget,
                               const tLook& target, const Compares& compares);

private:
    Asks m_asks;
    std::optional<tReplaceAnswer::Choice> m_forAll;
};

} // namespace desktop
