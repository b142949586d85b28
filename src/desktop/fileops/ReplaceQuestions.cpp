#include "ReplaceQuestions.h"

#include "FileTime.h"

namespace desktop {
namespace {

tFileFacts Facts(const std::string& sPath, const tLook& look)
{
    platform::tFileTime time{look.status.st_mtim.tv_sec};
    platform::tSystemTime split;
    const bool bKnown =
        platform::FileTimeToLocalFileTime(time) && platform::FileTimeToSystemTime(time, split);
    return {sPath, look.status.st_size, bKnown ? platform::DateValue(split) : 0};
}

} // namespace

tReplaceAnswer::Choice ReplaceQuestions::Ask(const std::string& sSource, const tLook& source,
                                             const std::string& sTarget, const tLook& target)
{
    if (m_forAll) {
        return *m_forAll;
    }
    const tReplaceAnswer answer = m_dialogs.AskReplace(Facts(sSource, source), Facts(sTarget, target));
    if (answer.bForAll) {
        m_forAll = answer.choice;
    }
    return answer.choice;
}

} // namespace desktop
