// SPDX-License-Identifier: MIT
#pragma once

#include <charconv>
#include <string>
#include <string_view>

/// The bytes of a name from its escaped form, in which "\x" and two digits are always an escape.
inline std::string NameOf(std::string_view sShown)
{
    std::string sName;
    while (!sShown.empty()) {
        unsigned char nByte = 0;
        const bool bEscape =
            sShown.size() >= 4 && sShown.starts_with("\\x") &&
            std::from_chars(sShown.data() + 2, sShown.data() + 4, nByte, 16).ptr == sShown.data() + 4;
        sName += bEscape ? static_cast<char>(nByte) : sShown[0];
        sShown.remove_prefix(bEscape ? 4 : 1);
    }
    return sName;
}
