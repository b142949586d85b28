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

    // What fits stays as it is.
    if (CountChars(sPath) <= nWanted) {
        return std::string(sPath);
    }
    // Without one trailing separator,
    std::string_view sBase = sPath;
    if (sBase.ends_with(cSeparator)) {
        sBase.remove_suffix(1);
    }
    // it may fit after all.
    if (nWidth >= 0 && nWanted >= CountChars(sBase)) {
        return std::string(sBase) + sSeparator;
    }
    // No room, no text.
    if (nWanted == 0) {
        return {};
    }
    // The tail: marker and last part.
    const std::string_view sLast = sBase.substr(sBase.rfind(cSeparator) + 1);
    const std::string sTail = std::string("...") + cSeparator + std::string(sLast) + sSeparator;
    const std::size_t nTail = CountChars(sTail);
    // As much of the beginning as there is room for in front of it.
    if (nWanted > nTail) {
        return std::string(LeftChars(sBase, nWanted - nTail)) + sTail;
    }
    // Not even the tail fits: its end, after a shorter marker if that leaves anything of it.
    if (nWanted > 2) {
        return ".." + std::string(RightChars(sTail, nWanted - 2));
    }
    // The bare end.
    return std::string(RightChars(sTail, nWanted));
}

std::string LabelText(std::string_view sPath)
{
    const bool bFits = CountChars(sPath) <= static_cast<std::size_t>(kLabelWidth);
    return bFits ? std::string(sPath) : CompactPath(sPath, kLabelWidth, false);
}

} // namespace search
