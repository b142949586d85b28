#include "LaunchCode.h"

#include "Texts.h"

#include <cerrno>
#include <sys/stat.h>

namespace desktop {

static_assert(kNoSuchFile == ENOENT);

long LaunchCode(int nError)
{
    switch (nError) {
    case ELOOP:
    case ENAMETOOLONG:
        return ENOENT; // such a path leads to nothing
    case EOVERFLOW:
        return EFBIG;
    default:
        constexpr int kLast = 30; // from 31 on the shell has codes of its own
        return nError > 0 && nError <= kLast ? nError : EIO;
    }
}

long WhyMissing(const std::string& sPath)
{
    if (!sPath.starts_with('/')) {
        return kNoSuchFile;
    }
    struct stat status = {};
    return stat(sPath.c_str(), &status) == 0 ? 0 : LaunchCode(errno);
}

std::string CodeInWords(long nCode)
{
    std::string sText(255, '\0');
    platform::FormatMessageA(platform::FORMAT_MESSAGE_FROM_SYSTEM, nCode, 0, sText);
    return sText.substr(0, sText.find('\0'));
}

} // namespace desktop
