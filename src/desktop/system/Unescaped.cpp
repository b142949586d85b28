// SPDX-License-Identifier: MIT
#include "Unescaped.h"

#include <charconv>

namespace desktop {

std::string Unescaped(std::string_view sText)
{
    constexpr std::size_t nEscape = 4;
    std::string sBytes;
    while (!sText.empty()) {
        const bool bHex = sText.starts_with("\\x");
        const std::string_view sDigits = sText.substr(0, nEscape).substr(bHex ? 2 : 1);
        unsigned char nByte = 0;
        const auto read = std::from_chars(sDigits.begin(), sDigits.end(), nByte, bHex ? 16 : 8);
        const bool bEscape = sText[0] == '\\' && sText.size() >= nEscape && read.ec == std::errc() &&
                             read.ptr == sDigits.end();
        sBytes += bEscape ? static_cast<char>(nByte) : sText[0];
        sText.remove_prefix(bEscape ? nEscape : 1);
    }
    return sBytes;
}

} // namespace desktop
