// SPDX-License-Identifier: MIT
// A shortened path has the requested length, contains whole characters only, and keeps the right parts.

#include "Require.h"
#include "Utf8.h"
#include "mCompactPath.h"

#include <fuzzer/FuzzedDataProvider.h>

namespace {

using platform::CountChars;

std::int64_t Count(std::string_view sText)
{
    return static_cast<std::int64_t>(CountChars(sText));
}

void Check(const std::string& sPath, std::int16_t nWidth, bool bTrailing, char cSeparator)
{
    const std::string sShort = search::CompactPath(sPath, nWidth, bTrailing, cSeparator);
    if (Count(sPath) <= nWidth) {
        Require(sShort == sPath, "what fits stays as it is");
        return;
    }
    const std::string sBase = sPath.ends_with(cSeparator) ? sPath.substr(0, sPath.size() - 1) : sPath;
    const std::string sEnd = bTrailing ? std::string(1, cSeparator) : std::string();
    if (Count(sBase) <= nWidth) {
        Require(sShort == sBase + sEnd, "what fits without its separator loses no more than that");
        return;
    }
    if (nWidth <= 0) {
        Require(sShort.empty(), "no room, no text");
        return;
    }
    Require(Count(sShort) == nWidth, "the room is used, and no more");
    const std::string sLast = sBase.substr(sBase.rfind(cSeparator) + 1);
    const std::string sTail = "..." + std::string(1, cSeparator) + sLast + sEnd;
    if (Count(sTail) < nWidth) {
        Require(sShort.ends_with(sTail), "the last part stands whole if there is room");
        const std::string sStart = sShort.substr(0, sShort.size() - sTail.size());
        Require(sBase.starts_with(sStart), "the beginning is the path's");
        Require(Count(sStart) + Count(sBase.substr(sStart.size())) == Count(sBase),
                "the beginning ends with a character");
        return;
    }
    const bool bMarker = nWidth > 2;
    Require(!bMarker || sShort.starts_with(".."), "a cut tail says so");
    const std::string sKept = sShort.substr(bMarker ? 2 : 0);
    Require(sTail.ends_with(sKept), "the end is the path's");
    Require(Count(sTail.substr(0, sTail.size() - sKept.size())) + Count(sKept) == Count(sTail),
            "the end starts with a character");
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* pData, std::size_t nSize)
{
    FuzzedDataProvider input(pData, nSize);
    const bool bTrailing = input.ConsumeBool();
    const char cSeparator = input.ConsumeBool() ? '/' : '\\';
    const auto nAny = input.ConsumeIntegral<std::int16_t>();
    const bool bNear = input.ConsumeBool();
    const std::string sPath = input.ConsumeRemainingBytesAsString();
    // Most widths make no difference to a path of a few characters.
    const auto nChars = static_cast<std::int16_t>(CountChars(sPath));
    Check(sPath, bNear ? static_cast<std::int16_t>(nChars - nAny % 16) : nAny, bTrailing, cSeparator);

    const std::string sLabel = search::LabelText(sPath);
    Require(CountChars(sLabel) <= search::kLabelWidth, "a label's text has room in it");
    Require(CountChars(sPath) > search::kLabelWidth || sLabel == sPath, "a label shows all it can");
    return 0;
}
