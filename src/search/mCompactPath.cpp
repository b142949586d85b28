// SPDX-License-Identifier: MIT
#include "mCompactPath.h"

#include "Utf8.h"

namespace search {

using platform::CountChars;
using platform::LeftChars;
using platform::RightChars;

std::string CompactPath(std::string_view sPath, std::int16_t nWidth, bool bTrailing, char cSeparator)
{
    const std::string sSeparator = bTrailing ? std::string(1, cSeparator) : std::string();
    const auto nWanted = static_cast<std::size_t>(nWidth > 0 ? nWidth : 0);

    if (CountChars(sPath) <= nWanted) {
        return std::string(sPath);
    }
    std::string_view sBase = sPath;
    if (sBase.ends_with(cSeparator)) {
        sBase.remove_suffix(1);
    }
    if (nWidth >= 0 && nWanted >= CountChars(sBase)) {
        return std::string(sBase) + sSeparator;
    }
    if (nWanted == 0) {
        return {};
    }
    const std::string_view sLast = sBase.substr(sBase.rfind(cSeparator) + 1);
    const std::string sTail = std::string("...") + cSeparator + std::string(sLast) + sSeparator;
    const std::size_t nTail = CountChars(sTail);
    // As much of the beginning as fits in front of the tail.
    if (nWanted > nTail) {
        return std::string(LeftChars(sBase, nWanted - nTail)) + sTail;
    }
    // Not even the tail fits: shorten the marker if that leaves room for anything else.
    if (nWanted > 2) {
        return ".." + std::string(RightChars(sTail, nWanted - 2));
    }
    return std::string(RightChars(sTail, nWanted));
}

std::string LabelText(std::string_view sPath)
{
    const bool bFits = CountChars(sPath) <= static_cast<std::size_t>(kLabelWidth);
    return bFits ? std::string(sPath) : CompactPath(sPath, kLabelWidth, false);
}

} // namespace search
