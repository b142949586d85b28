// SPDX-License-Identifier: MIT
#include "Utf8.h"

#include <algorithm>
#include <cstdint>
#include <cstring>

namespace platform {
namespace {

/// The length of the valid sequence at the start of `sText`, 0 if there is none.
std::size_t ValidLength(std::string_view sText)
{
    const auto byte = [&](std::size_t n) { return static_cast<unsigned char>(sText[n]); };
    const auto continues = [&](std::size_t n, unsigned nLow, unsigned nHigh) {
        return n < sText.size() && byte(n) >= nLow && byte(n) <= nHigh;
    };
    const unsigned nLead = byte(0);
    if (nLead < 0x80) {
        return 1;
    }
    if (nLead >= 0xC2 && nLead <= 0xDF) {
        return continues(1, 0x80, 0xBF) ? 2 : 0;
    }
    // The limits of the second byte exclude overlong forms, surrogates and values above U+10FFFF.
    if (nLead >= 0xE0 && nLead <= 0xEF) {
        const unsigned nLow = nLead == 0xE0 ? 0xA0 : 0x80;
        const unsigned nHigh = nLead == 0xED ? 0x9F : 0xBF;
        return continues(1, nLow, nHigh) && continues(2, 0x80, 0xBF) ? 3 : 0;
    }
    if (nLead >= 0xF0 && nLead <= 0xF4) {
        const unsigned nLow = nLead == 0xF0 ? 0x90 : 0x80;
        const unsigned nHigh = nLead == 0xF4 ? 0x8F : 0xBF;
        const bool bValid = continues(1, nLow, nHigh) && continues(2, 0x80, 0xBF) && continues(3, 0x80, 0xBF);
        return bValid ? 4 : 0;
    }
    return 0;
}

} // namespace

std::size_t CharLength(std::string_view sText)
{
    return std::max<std::size_t>(ValidLength(sText), 1);
}

bool ValidChar(std::string_view sText)
{
    return ValidLength(sText) != 0;
}

std::size_t CountChars(std::string_view sText)
{
    if (IsAscii(sText)) {
        return sText.size();
    }
    std::size_t nChars = 0;
    for (; !sText.empty(); sText.remove_prefix(CharLength(sText))) {
        ++nChars;
    }
    return nChars;
}

std::string_view LeftChars(std::string_view sText, std::size_t nChars)
{
    if (IsAscii(sText)) {
        return sText.substr(0, nChars);
    }
    std::size_t nBytes = 0;
    for (; nChars > 0 && nBytes < sText.size(); --nChars) {
        nBytes += CharLength(sText.substr(nBytes));
    }
    return sText.substr(0, nBytes);
}

std::string_view RightChars(std::string_view sText, std::size_t nChars)
{
    const std::size_t nAll = CountChars(sText);
    const std::size_t nDropped = nAll - std::min(nAll, nChars);
    return sText.substr(LeftChars(sText, nDropped).size());
}

bool IsAscii(std::string_view sText)
{
    constexpr std::uint64_t nHighBits = 0x8080808080808080U;
    for (; sText.size() >= sizeof(std::uint64_t); sText.remove_prefix(sizeof(std::uint64_t))) {
        std::uint64_t nEight = 0;
        std::memcpy(&nEight, sText.data(), sizeof nEight);
        if ((nEight & nHighBits) != 0) {
            return false;
        }
    }
    return std::all_of(sText.begin(), sText.end(), [](char c) { return static_cast<signed char>(c) >= 0; });
}

bool IsValidUtf8(std::string_view sText)
{
    while (!sText.empty()) {
        const std::size_t nLength = ValidLength(sText);
        if (nLength == 0) {
            return false;
        }
        sText.remove_prefix(nLength);
    }
    return true;
}

} // namespace platform
