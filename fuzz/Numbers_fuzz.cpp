// SPDX-License-Identifier: MIT
// Grouping changes no digit, makes groups of the requested sizes, and agrees with the C library.

#include "Require.h"
#include "Texts.h"

#include <algorithm>
#include <array>
#include <climits>
#include <clocale>
#include <cstdio>
#include <fuzzer/FuzzedDataProvider.h>

namespace {

constexpr char kSeparator = '\'';

/// Splits the digits from the end into groups of the given sizes.
void CheckGroups(const std::string& sDigits, const std::string& grouping)
{
    std::string sLeft = platform::GroupDigits(sDigits, std::string(1, kSeparator), grouping);
    std::string sJoined = sLeft;
    std::erase(sJoined, kSeparator);
    Require(sJoined == sDigits, "the digits stay");
    std::size_t nSize = 0;
    for (std::size_t n = 0;; ++n) {
        const bool bEnd = n < grouping.size() && grouping[n] == CHAR_MAX;
        nSize = n < grouping.size() && !bEnd ? static_cast<std::size_t>(grouping[n]) : nSize;
        const std::size_t nAt = sLeft.rfind(kSeparator);
        if (nAt == std::string::npos) {
            Require(bEnd || nSize == 0 || sLeft.size() <= nSize, "every group that is due is there");
            return;
        }
        Require(!bEnd && sLeft.size() - nAt - 1 == nSize, "a group has its size");
        Require(nAt > 0, "no separator without a digit in front");
        sLeft.resize(nAt);
    }
}

} // namespace

extern "C" int LLVMFuzzerInitialize(int* /*pArgc*/, char*** /*pArgv*/)
{
    std::setlocale(LC_ALL, "");
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* pData, std::size_t nSize)
{
    FuzzedDataProvider input(pData, nSize);
    const auto nNumber = input.ConsumeIntegral<std::int64_t>() >> input.ConsumeIntegralInRange(0, 63);
    std::array<char, 128> aText{};
    std::snprintf(aText.data(), aText.size(), "%'lld", static_cast<long long>(nNumber));
    Require(platform::FormatNumber(nNumber) == aText.data(), "as the C library groups");

    std::string grouping;
    while (input.remaining_bytes() > 0 && grouping.size() < 8) {
        grouping +=
            input.ConsumeBool() ? input.ConsumeIntegralInRange<char>(1, 4) : static_cast<char>(CHAR_MAX);
    }
    CheckGroups(std::to_string(nNumber & INT64_MAX), grouping);
    return 0;
}
