#include "ReplaceQuestions.h"

#include "FileTime.h"

namespace desktop {
namespace {

tFileFacts Facts(const std::string& sPath, const tLook& look)
{
    const auto stTime = platform::LocalTime({look.status.st_mtim.tv_sec});
    return {sPath, look.status.st_size, stTime ? platform::DateValue(*stTime) : 0};
}

} // namespace

tReplaceAnswer::Choice ReplaceQuestions::Ask(const std::string& sSource, const tLook& source,
                                             const std::string& sTarget, const tLook& target)
{
    if (m_forAll) {
        return *m_forAll;
    }
    const tReplaceAnswer answer = m_asks(Facts(sSource, source), Facts(sTarget, target));
    if (answer.bForAll) {
        m_forAll = answer.choice;
    }
    return answer.choice;
}

} // namespace desktop
