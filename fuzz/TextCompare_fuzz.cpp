// SPDX-License-Identifier: MIT
// Texts that differ only in letter case are equal, and their classes match a comparison of all pairs.

#include "Require.h"
#include "Texts.h"
#include "Utf8.h"
#include "cTextClasses.h"
#include "mTextCompare.h"

#include <algorithm>
#include <array>
#include <fuzzer/FuzzedDataProvider.h>
#include <glib.h>

namespace {

std::string Folded(const std::string& sText)
{
    std::string sFolded;
    search::FoldText(sText, sFolded);
    return sFolded;
}

/// `sText` with the case of some letters swapped, where the result differs by case only.
std::string Recased(const std::string& sText, FuzzedDataProvider& input)
{
    std::string sOther;
    if (!platform::IsValidUtf8(sText)) {
        for (const char c : sText) {
            sOther += input.ConsumeBool() ? g_ascii_toupper(c) : g_ascii_tolower(c);
        }
        return sOther;
    }
    for (const char* p = sText.c_str(); *p != 0; p += platform::CharLength(p)) {
        const gunichar nChar = g_utf8_get_char(p);
        // The dotless i and the dotted I are different letters; case folding does not map them to i and I.
        const bool bOwn = nChar == 0x130 || nChar == 0x131;
        const gunichar nTurned = input.ConsumeBool() ? g_unichar_toupper(nChar) : g_unichar_tolower(nChar);
        std::array<char, 6> aBytes{};
        const auto nBytes = g_unichar_to_utf8(bOwn ? nChar : nTurned, aBytes.data());
        sOther.append(aBytes.data(), static_cast<std::size_t>(nBytes));
    }
    return sOther;
}

void CheckPair(const std::string& sFirst, const std::string& sSecond)
{
    const bool bEqual = Folded(sFirst) == Folded(sSecond);
    search::cTextClasses classes;
    platform::TextStore store;
    const auto nFirst = classes.ClassOf(store.Add(sFirst));
    Require(bEqual == (classes.ClassOf(store.Add(sSecond)) == nFirst), "one class is what is equal");
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* pData, std::size_t nSize)
{
    FuzzedDataProvider input(pData, nSize);
    std::string sFirst = input.ConsumeRandomLengthString(64);
    std::string sSecond = input.ConsumeRandomLengthString(64);
    // File names contain no NUL.
    std::replace(sFirst.begin(), sFirst.end(), '\0', ' ');
    std::replace(sSecond.begin(), sSecond.end(), '\0', ' ');

    CheckPair(sFirst, sSecond);
    const std::string sRecased = Recased(sFirst, input);
    Require(Folded(sFirst) == Folded(sRecased), "letter case alone makes no difference");
    CheckPair(sRecased, sSecond);

    const std::string sFolded = Folded(sFirst);
    Require(Folded(sFolded) == sFolded, "folding is done at once");
    Require(Folded(sFirst) == Folded(sFolded), "folding is a change of letter case");
    Require(platform::IsValidUtf8(sFolded) == platform::IsValidUtf8(sFirst), "text stays text");
    return 0;
}
