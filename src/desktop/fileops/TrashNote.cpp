// SPDX-License-Identifier: MIT
#include "TrashNote.h"

#include <algorithm>
#include <array>
#include <climits>
#include <ctime>

namespace desktop {
namespace {

constexpr std::string_view kEnding = ".trashinfo";
constexpr std::size_t kLongest = NAME_MAX - kEnding.size();

/// A path encoded for URIs, byte by byte.
std::string PercentEncoded(std::string_view sPath)
{
    constexpr std::string_view kPlain = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789-_.~/";
    constexpr std::string_view kDigits = "0123456789ABCDEF";
    std::string sEncoded;
    for (const char c : sPath) {
        if (kPlain.find(c) != std::string_view::npos) {
            sEncoded += c;
        } else {
            const auto nByte = static_cast<unsigned char>(c);
            sEncoded += {'%', kDigits[nByte >> 4U], kDigits[nByte & 15U]};
        }
    }
    return sEncoded;
}

/// The local time, "2004-08-31T22:32:08".
std::string LocalNow()
{
    const std::time_t nNow = std::time(nullptr);
    std::tm local{};
    std::array<char, 64> aText{};
    const bool bKnown = localtime_r(&nNow, &local) != nullptr;
    const std::size_t nLength =
        bKnown ? std::strftime(aText.data(), aText.size(), "%Y-%m-%dT%H:%M:%S", &local) : 0;
    return {aText.data(), nLength};
}

} // namespace

std::string TrashNote(std::string_view sPath)
{
    return "[Trash Info]\nPath=" + PercentEncoded(sPath) + "\nDeletionDate=" + LocalNow() + '\n';
}

std::string NoteName(const std::string& sNameInTrash)
{
    return sNameInTrash + std::string(kEnding);
}

std::string NameInTrash(const std::string& sName, std::size_t nTry)
{
    const std::string sNumber = nTry == 1 ? "" : '.' + std::to_string(nTry);
    if (sName.size() + sNumber.size() <= kLongest) {
        const std::size_t nDot = std::min(sName.find('.'), sName.size());
        return sName.substr(0, nDot) + sNumber + sName.substr(nDot);
    }
    std::size_t nCut = kLongest - sNumber.size();
    // Never cuts within a character: continuation bytes start with the bits 10.
    const auto isInside = [&](std::size_t n) {
        return (static_cast<unsigned char>(sName[n]) & 0xC0U) == 0x80U;
    };
    while (nCut > kLongest / 2 && isInside(nCut)) {
        --nCut;
    }
    return sName.substr(0, nCut) + sNumber;
}

} // namespace desktop
