// SPDX-License-Identifier: MIT
// Prints the speed of the CRC-32 loops and of libdeflate_crc32, and their ratios. The loops take turns in
// each round, so that other load on the machine affects them equally; the result is the median of the rounds.

#include "mCRCKernels.h"

#include <algorithm>
#include <array>
#include <chrono>
#include <cstdint>
#include <cstdio>
#include <libdeflate.h>
#include <random>
#include <vector>

namespace {

using tClock = std::chrono::steady_clock;

constexpr int kRounds = 201;

struct tContender {
    const char* sName;
    search::tCRCKernel run;
};

void ByLibdeflate(std::int32_t* pRegister, const std::uint8_t* pFirst, const std::int32_t* /*pTable*/,
                  std::size_t nBytes)
{
    // libdeflate takes and returns the complement of the register.
    const std::uint32_t nBefore = ~static_cast<std::uint32_t>(*pRegister);
    *pRegister = static_cast<std::int32_t>(~libdeflate_crc32(nBefore, pFirst, nBytes));
}

/// Built by the program's own function; the comparison with libdeflate verifies it.
search::tCRCTable BuildTable()
{
    search::tCRCTable aTable{};
    for (std::size_t i = 0; i < aTable.size(); ++i) {
        aTable[i] = static_cast<std::int32_t>(search::CRC32TableEntry(static_cast<std::uint32_t>(i)));
    }
    return aTable;
}

const std::array<tContender, 4> kContenders{{{"table", search::AddToCRC32ByTable},
                                             {"slicing", search::AddToCRC32BySlicing},
                                             {"chosen", search::FastestCRC32()},
                                             {"libdeflate", ByLibdeflate}}};

/// The median speed of each contender on `data`, in GB/s; empty if their checksums differ.
std::vector<double> Measure(const std::vector<std::uint8_t>& data, const search::tCRCTable& aTable)
{
    // About 1 MiB per turn: long compared with the overhead of the clock, short enough for many turns.
    const std::size_t nRepeats = std::max<std::size_t>(1, (std::size_t{1} << 20) / data.size());
    std::array<std::vector<double>, kContenders.size()> aSpeeds;
    for (int nRound = 0; nRound < kRounds; ++nRound) {
        std::array<std::int32_t, kContenders.size()> aRegisters{};
        for (std::size_t n = 0; n < kContenders.size(); ++n) {
            const auto start = tClock::now();
            for (std::size_t i = 0; i < nRepeats; ++i) {
                kContenders[n].run(&aRegisters[n], data.data(), aTable.data(), data.size());
            }
            const std::chrono::duration<double, std::nano> time = tClock::now() - start;
            aSpeeds[n].push_back(static_cast<double>(nRepeats * data.size()) / time.count());
        }
        if (std::any_of(aRegisters.begin(), aRegisters.end(), [&](auto n) { return n != aRegisters[0]; })) {
            return {};
        }
    }
    std::vector<double> medians;
    for (auto& speeds : aSpeeds) {
        std::nth_element(speeds.begin(), speeds.begin() + kRounds / 2, speeds.end());
        medians.push_back(speeds[kRounds / 2]);
    }
    return medians;
}

} // namespace

int main()
{
    const search::tCRCTable aTable = BuildTable();
    std::mt19937 random(1);
    std::printf("CRC-32, GB/s, medians of %d rounds; carry-less multiplication: %s\n", kRounds,
                search::CanFold() ? "yes" : "no");
    std::printf("%10s", "bytes");
    for (const tContender& contender : kContenders) {
        std::printf("%12s", contender.sName);
    }
    std::printf("%16s%20s\n", "chosen/table", "chosen/libdeflate");
    for (const std::size_t nBytes : {64U, 1024U, 16U * 1024U, 1024U * 1024U}) {
        std::vector<std::uint8_t> data(nBytes);
        std::generate(data.begin(), data.end(), [&] { return static_cast<std::uint8_t>(random()); });
        const std::vector<double> medians = Measure(data, aTable);
        if (medians.empty()) {
            std::fprintf(stderr, "the loops disagree on %zu bytes\n", nBytes);
            return 1;
        }
        std::printf("%10zu", nBytes);
        for (const double nSpeed : medians) {
            std::printf("%12.2f", nSpeed);
        }
        std::printf("%16.2f%20.2f\n", medians[2] / medians[0], medians[2] / medians[3]);
    }
    return 0;
}
