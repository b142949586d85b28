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
                                             const std::function<ContentComparison::Result()>& compare)
{
    if (m_forAll) {
        return *m_forAll;
    }
    const auto result = compare();
    if (result == ContentComparison::Result::Cancelled) {
        return tReplaceAnswer::Choice::Cancel;
    }
    const tReplaceAnswer answer = m_dialogs.AskReplace(Facts(sSource, source), Facts(sTarget, target),
                                                       result == ContentComparison::Result::Same);
    if (answer.bForAll) {
        m_forAll = answer.choice;
    }
    return answer.choice;
}

} // namespace desktop
