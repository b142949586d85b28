// SPDX-License-Identifier: MIT
#include "Escaped.h"

#include "Utf8.h"

#include <algorithm>
#include <cstdint>
#include <iterator>
#include <utility>

namespace platform {
namespace {

/// The code point of a valid character.
std::uint32_t CodePoint(std::string_view sChar)
{
    // The leading byte holds the length in its high bits; each continuation byte adds 6 bits.
    auto nCode = static_cast<std::uint32_t>(static_cast<unsigned char>(sChar[0]));
    nCode &= sChar.size() == 1 ? 0x7FU : 0xFFU >> (sChar.size() + 1);
    for (const char c : sChar.substr(1)) {
        nCode = (nCode << 6U) | (static_cast<unsigned char>(c) & 0x3FU);
    }
    return nCode;
}

/// Invisible characters above ASCII, as ranges with both ends included: some end a line, some change its
/// direction, some only make two names look the same. Joiners are left out, since words are written with
/// them.
constexpr std::pair<std::uint32_t, std::uint32_t> kUnseen[] = {
    {0x80, 0x9F},     {0xAD, 0xAD},       {0x34F, 0x34F},     {0x61C, 0x61C},     {0x115F, 0x1160},
    {0x17B4, 0x17B5}, {0x180E, 0x180E},   {0x200B, 0x200B},   {0x200E, 0x200F},   {0x2028, 0x202E},
    {0x2060, 0x206F}, {0x2800, 0x2800},   {0x3164, 0x3164},   {0xFEFF, 0xFEFF},   {0xFFA0, 0xFFA0},
    {0xFFF0, 0xFFFB}, {0x1BCA0, 0x1BCA3}, {0x1D173, 0x1D17A}, {0xE0000, 0xE0FFF},
};

bool CanBeSeen(std::uint32_t nCode)
{
    return nCode >= ' ' && nCode != 0x7F &&
           std::none_of(std::begin(kUnseen), std::end(kUnseen),
                        [nCode](const auto& range) { return nCode >= range.first && nCode <= range.second; });
}

bool IsHexDigit(char c)
{
    return (c >= '0' && c <= '9') || (c >= 'a' && c <= 'f') || (c >= 'A' && c <= 'F');
}

/// True if `sText` starts with something that reads as an escape.
bool ReadsAsEscape(std::string_view sText)
{
    return sText.size() >= 4 && sText.starts_with("\\x") && IsHexDigit(sText[2]) && IsHexDigit(sText[3]);
}

} // namespace

std::string Escaped(std::string_view sName)
{
    constexpr std::string_view kDigits = "0123456789ABCDEF";
    std::string sShown;
    sShown.reserve(sName.size());
    while (!sName.empty()) {
        const std::string_view sChar = sName.substr(0, CharLength(sName));
        if (ValidChar(sName) && CanBeSeen(CodePoint(sChar)) && !ReadsAsEscape(sName)) {
            sShown += sChar;
        } else {
            for (const char c : sChar) {
                const auto nByte = static_cast<unsigned char>(c);
                sShown += {'\\', 'x', kDigits[nByte >> 4U], kDigits[nByte & 15U]};
            }
        }
        sName.remove_prefix(sChar.size());
    }
    return sShown;
}

} // namespace platform
