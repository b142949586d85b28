#pragma once

#include "FileIdentity.h"
#include "OperationDialogs.h"

#include <functional>
#include <optional>
#include <string>
#include <utility>

namespace desktop {

/// What the user wants where a file stands in the way; asked file by file until an answer is meant for all.
class ReplaceQuestions
{
public:
    /// Asks about the source and the file that is there.
    using Asks = std::function<tReplaceAnswer(const tFileFacts&, const tFileFacts&)>;

    explicit ReplaceQuestions(Asks asks) : m_asks(std::move(asks)) {}

    tReplaceAnswer::Choice Ask(const std::string& sSource, const tLook& source, const std::string& sTarget,
                               const tLook& target);

private:
    Asks m_asks;
    std::optional<tReplaceAnswer::Choice> m_forAll;
};

} // namespace desktop
