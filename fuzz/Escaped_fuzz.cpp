// SPDX-License-Identifier: MIT
// An escaped name is safe to show and identifies the name; and our UTF-8 decoder agrees with GLib's.

#include "Escaped.h"
#include "NameOf.h"
#include "Require.h"
#include "Utf8.h"

#include <algorithm>
#include <cstdint>
#include <glib.h>

namespace {

bool ActsOnTheTextAround(gunichar nChar)
{
    const bool bTurns = (nChar >= 0x202A && nChar <= 0x202E) || (nChar >= 0x2066 && nChar <= 0x2069) ||
                        nChar == 0x200E || nChar == 0x200F || nChar == 0x61C;
    const GUnicodeType type = g_unichar_type(nChar);
    return bTurns || type == G_UNICODE_CONTROL || type == G_UNICODE_LINE_SEPARATOR ||
           type == G_UNICODE_PARAGRAPH_SEPARATOR;
}

void CheckShown(const std::string& sName)
{
    const std::string sShown = platform::Escaped(sName);
    Require(NameOf(sShown) == sName, "the name can be told from what is shown");
    Require(g_utf8_validate_len(sShown.data(), sShown.size(), nullptr) != 0, "what is shown is valid text");
    for (const char* p = sShown.c_str(); *p != 0; p += platform::CharLength(p)) {
        Require(!ActsOnTheTextAround(g_utf8_get_char(p)), "what is shown acts on nothing");
    }
    Require(!platform::IsValidUtf8(sName) || platform::CountChars(sShown) >= platform::CountChars(sName),
            "nothing is left out");
}

void CheckUtf8(const std::string& sText)
{
    const bool bNul = sText.find('\0') != std::string::npos; // GLib does not accept it in a text
    const bool bValid = platform::IsValidUtf8(sText);
    Require(bNul || bValid == (g_utf8_validate_len(sText.data(), sText.size(), nullptr) != 0),
            "what is valid is valid to others");
    const std::size_t nChars = platform::CountChars(sText);
    Require(bNul || !bValid || nChars == static_cast<std::size_t>(g_utf8_strlen(sText.c_str(), -1)),
            "characters are counted as others do");
    for (std::size_t n = 0; n <= nChars + 1; n += 1 + n / 16) {
        const auto sLeft = platform::LeftChars(sText, n);
        const auto sRight = platform::RightChars(sText, nChars - std::min(n, nChars));
        Require(platform::CountChars(sLeft) == std::min(n, nChars), "the left part has its characters");
        Require(std::string(sLeft).append(sRight) == sText, "both parts are all");
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* pData, std::size_t nSize)
{
    const std::string sName(reinterpret_cast<const char*>(pData), nSize);
    CheckShown(sName);
    CheckUtf8(sName);
    return 0;
}
