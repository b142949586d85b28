// SPDX-License-Identifier: MIT
#include "cCRC.h"

#include "ScriptedFiles.h"
#include "System.h"

#include <cstdint>
#include <limits>
#include <random>
#include <tuple>

using namespace search;

namespace {

const std::string kDigits = "123456789";

TEST(CRC, PublishedValues)
{
    using tCase = std::tuple<std::int32_t, std::string, std::uint32_t>;
    for (const auto& [nAlgorithm, sText, nValue] :
         {tCase{1, "", 0}, tCase{1, kDigits, 0xCBF43926}, tCase{1, std::string(32, '\0'), 0x190A55AD},
          tCase{0, "", 0}, tCase{0, kDigits, 0x31C3}, tCase{0, "A", 0x58E5}}) {
        cCRC oCRC;
        oCRC.AddString("not part of what follows");
        oCRC.Algorithm(nAlgorithm);
        EXPECT_EQ(oCRC.AddString(sText), static_cast<std::int32_t>(nValue)) << sText;
        EXPECT_EQ(oCRC.CalculateString(sText), static_cast<std::int32_t>(nValue)) << sText;
    }
}

TEST(CRC, FasterLoopsAgreeWithTheTable)
{
    tCRCTable aTable{};
    for (std::uint32_t n = 0; n < aTable.size(); ++n) {
        aTable[n] = static_cast<std::int32_t>(CRC32TableEntry(n));
    }
    std::mt19937 random(1);
    for (std::size_t nBytes = 0; nBytes <= 1024; ++nBytes) {
        for (const std::size_t nAlignment : {std::size_t{0}, nBytes % 16, nBytes * 7 % 64}) {
            // In a buffer of just this size, so that a byte too many is seen.
            std::vector<std::uint8_t> bytes(nAlignment + nBytes);
            std::generate(bytes.begin(), bytes.end(), [&] { return static_cast<std::uint8_t>(random()); });
            const auto run = [&](tCRCKernel kernel) {
                auto nRegister = static_cast<std::int32_t>(nBytes * 0x9E3779B9U);
                kernel(&nRegister, bytes.data() + nAlignment, aTable.data(), nBytes);
                return nRegister;
            };
            const std::int32_t nExpected = run(AddToCRC32ByTable);
            ASSERT_EQ(run(AddToCRC32BySlicing), nExpected) << nBytes << " bytes at " << nAlignment;
            ASSERT_EQ(run(FastestCRC32()), nExpected) << nBytes << " bytes at " << nAlignment;
        }
    }
}

TEST(CRC, StateOfTheRegisters)
{
    cCRC oCRC;
    oCRC.CalculateString("1234");
    oCRC.Value(~oCRC.Value());
    EXPECT_EQ(oCRC.AddString("56789"), cCRC().CalculateString(kDigits)) << "a value put back goes on";
    for (const std::int32_t nAlgorithm : {5, 0, 0, -7, 0}) {
        oCRC.AddString("x");
        oCRC.Algorithm(nAlgorithm);
        EXPECT_TRUE(oCRC.Value() == 0 && oCRC.Algorithm() == (nAlgorithm == 0 ? 0 : -1)) << nAlgorithm;
    }
    oCRC.Value(0x12340000);
    EXPECT_EQ(oCRC.Value(), 0) << "a value of CRC-16 has 16 bits";
    EXPECT_EQ(oCRC.AddString(kDigits), 0x31C3) << "and goes on with them alone";
}

TEST(CRC, OfFiles)
{
    const tChecksum failed = std::string_view("00000000");
    const auto of = [](const std::string& sBytes) { return tChecksum(cCRC().CalculateString(sBytes)); };
    support::ScriptedFiles files;
    platform::UseSystem({.files = &files});
    files.files = {{"/full", {.sContent = kDigits}},
                   {"/shrunk", {.sContent = kDigits, .nLength = 10}},
                   {"/locked", {.sContent = kDigits, .bOpens = false}},
                   {"/torn", {.sContent = kDigits, .bReads = false}},
                   {"/odd", {.sContent = kDigits, .nLength = -1}}};
    // What is told, as many bytes as are asked for, and what is read as long as it is.
    const std::tuple<std::string, std::int32_t, tChecksum, tChecksum> cases[] = {
        {"/full", 9, of(kDigits), of(kDigits)},
        {"/full", 4, of("1234"), of(kDigits)},
        {"/full", 2000, of(kDigits + std::string(1991, '\0')), of(kDigits)},
        {"/full", 0, of(""), of(kDigits)},
        {"/full", -1, failed, of(kDigits)},
        {"/shrunk", 9, of(kDigits), of(kDigits + '\0')}, // after it was measured
        {"/new", 70, of(std::string(70, '\0')), failed},
        {"/locked", 9, failed, failed},
        {"/torn", 9, failed, failed},
        {"/gone/file", 9, failed, failed},
        {"/odd", 9, of(kDigits), failed},
    };
    cCRC oCRC;
    for (const auto& [sFile, nSize, sized, whole] : cases) {
        EXPECT_EQ(oCRC.CalculateFiles(sFile, nSize), sized) << sFile << ' ' << nSize;
        oCRC.CalculateString("before"); // which a failure leaves alone
        const std::int32_t nBefore = oCRC.Value();
        EXPECT_EQ(oCRC.CalculateFile(sFile), whole) << sFile;
        EXPECT_EQ(oCRC.Value(), whole == failed ? nBefore : std::get<std::int32_t>(whole));
    }
    EXPECT_TRUE(files.PathFound("/new")) << "opening creates";
    for (const std::int32_t nAlgorithm : {1, 0}) { // read by another
        oCRC.Algorithm(nAlgorithm);
        const auto* pDigits = reinterpret_cast<const std::uint8_t*>(kDigits.data());
        const std::int32_t nSum = oCRC.SumOfBytes()(pDigits, kDigits.size());
        EXPECT_EQ(oCRC.CalculateFiles(nSum), tChecksum(oCRC.CalculateString(kDigits)));
        EXPECT_EQ(oCRC.CalculateFiles(std::nullopt), failed);
        EXPECT_EQ(oCRC.Value(), nSum) << "a failure leaves it alone";
    }
#if !defined(__SANITIZE_ADDRESS__) // which ends the program instead of refusing
    files.files["/odd"].nLength = std::numeric_limits<std::int64_t>::max();
    EXPECT_EQ(cCRC().CalculateFile("/odd"), failed);
#endif
}

} // namespace
