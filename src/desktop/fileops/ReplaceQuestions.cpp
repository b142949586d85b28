// SPDX-License-Identifier: MIT
#include "ReplaceQuestions.h"

namespace desktop {
namespace {

tFileFacts Facts(const std::string& sPath, const tLook& look)
{
    return {sPath, look.status.st_size, DateOf(look.Identity())};
}

} // namespace

tReplaceAnswer::Choice ReplaceQuestions::Ask(const std::string& sSource, const tLook& source,
                                             const std::string& sTarget, const tLook& target,
                                             const Compares& compares)
{
    if (m_forAll) {
        return *m_forAll;
    }
    const auto result = compares();
    if (result == ContentComparison::Result::Cancelled) {
        return tReplaceAnswer::Choice::Cancel;
    }
    const tReplaceAnswer answer =
        m_asks(Facts(sSource, source), Facts(sTarget, target), result == ContentComparison::Result::Same);
    if (answer.bForAll) {
        m_forAll = answer.choice;
    }
    return answer.choice;
}

} // namespace desktop
