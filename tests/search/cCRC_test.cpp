#include "cCRC.h"

#include "ScriptedFiles.h"
#include "System.h"

#include <gtest/gtest.h>
#include <limits>
#include <random>
#include <tuple>

using namespace search;

namespace {

const std::string kDigits = "123456789";

std::string RandomText(std::size_t nBytes)
{
    std::mt19937 random(static_cast<unsigned>(nBytes));
    std::string sText(nBytes, '\0');
    std::generate(sText.begin(), sText.end(), [&] { return static_cast<char>(random()); });
    return sText;
}

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
    tCRCTable aTable{}; // an entry is what one byte leaves in an empty register
    for (std::size_t i = 0; i < aTable.size(); ++i) {
        cCRC oCRC;
        oCRC.Value(0);
        aTable[i] = ~oCRC.AddString(std::string(1, static_cast<char>(i)));
    }
    const auto compare = [&](tCRCKernel run, std::size_t nAlignment, std::size_t nBytes) {
        const std::string sText = RandomText(nAlignment + nBytes);
        // In a buffer of just this size, so that a byte too many is seen.
        const std::vector<std::uint8_t> bytes(sText.begin(), sText.end());
        const std::int32_t nStart = static_cast<std::int32_t>(nBytes * 0x9E3779B9U);
        std::int32_t nExpected = nStart;
        AddToCRC32ByTable(&nExpected, bytes.data() + nAlignment, aTable.data(), nBytes);
        std::int32_t nRegister = nStart;
        run(&nRegister, bytes.data() + nAlignment, aTable.data(), nBytes);
        ASSERT_EQ(nRegister, nExpected) << nBytes << " bytes at " << nAlignment;
    };
    for (const tCRCKernel run : {AddToCRC32BySlicing, CanFold() ? AddToCRC32ByFolding : FastestCRC32()}) {
        for (std::size_t nBytes = 0; nBytes <= 1024; ++nBytes) {
            for (const std::size_t nAlignment : {std::size_t{0}, nBytes % 16, nBytes * 7 % 64})
                compare(run, nAlignment, nBytes);
        }
    }
}

TEST(CRC, StateOfTheRegisters)
{
    cCRC oCRC;
    oCRC.Value(0);
    EXPECT_EQ(oCRC.Value(), -1);
    oCRC.CalculateString("1234");
    oCRC.Value(~oCRC.Value());
    EXPECT_EQ(oCRC.AddString("56789"), cCRC().CalculateString(kDigits)) << "a value put back goes on";
    for (const std::int32_t nAlgorithm : {5, 0, 0, -7, 0}) {
        oCRC.AddString("x");
        oCRC.Algorithm(nAlgorithm);
        EXPECT_EQ(oCRC.Value(), 0);
        EXPECT_EQ(oCRC.Algorithm(), nAlgorithm == 0 ? 0 : -1);
    }
    oCRC.Value(0x12345678);
    EXPECT_EQ(oCRC.Value(), 0x5678) << "a value of CRC-16 has 16 bits";
    const std::int32_t nAdded = oCRC.AddString("x");
    oCRC.Value(0x5678);
    EXPECT_EQ(oCRC.AddString("x"), nAdded) << "and goes on with them alone";
}

class CRCOfFiles : public ::testing::Test
{
protected:
    CRCOfFiles() { platform::UseSystem({.files = &files}); }
    support::ScriptedFiles files;
    cCRC oCRC;
};

TEST_F(CRCOfFiles, ReadsAsMuchAsItIsTold)
{
    files.files["/file"] = {.sContent = kDigits, .bWaits = true};
    using tCase = std::tuple<std::string, std::int32_t, std::string>;
    for (const auto& [sFile, nSize, sBytes] :
         {tCase{"/file", 9, kDigits}, tCase{"/file", 4, "1234"}, tCase{"/file", 0, ""},
          tCase{"/file", 2000, kDigits + std::string(1991, '\0')},
          tCase{"/new", 70, std::string(70, '\0')}}) {
        const std::int32_t nExpected = cCRC().CalculateString(sBytes);
        EXPECT_EQ(oCRC.CalculateFiles(sFile, nSize), tChecksum(nExpected)) << sFile << ' ' << nSize;
        EXPECT_EQ(oCRC.Value(), nExpected);
        EXPECT_EQ(oCRC.LastReadWaited(), sFile == "/file");
    }
    EXPECT_EQ(oCRC.CalculateFile("/file"), tChecksum(cCRC().CalculateString(kDigits)));
    files.files["/file"].nLength = 10; // it shrank after it was measured
    EXPECT_EQ(oCRC.CalculateFile("/file"), tChecksum(cCRC().CalculateString(kDigits + '\0')));
}

TEST_F(CRCOfFiles, FailureLeavesTheRegisterAlone)
{
    const tChecksum failed = std::string_view("00000000");
    files.files = {{"/full", {.sContent = kDigits, .bWaits = true}},
                   {"/locked", {.sContent = kDigits, .bOpens = false}},
                   {"/torn", {.sContent = kDigits, .bReads = false, .bWaits = true}},
                   {"/odd", {.sContent = kDigits, .nLength = -1}}};
    oCRC.CalculateFiles("/full", 5);
    const std::int32_t nBefore = oCRC.Value();
    for (const char* sFile : {"/locked", "/torn", "/gone/file"}) {
        EXPECT_EQ(oCRC.CalculateFile(sFile), failed) << sFile;
        EXPECT_EQ(oCRC.CalculateFiles(sFile, 9), failed) << sFile;
    }
    EXPECT_EQ(oCRC.CalculateFiles("/full", -1), failed);
    EXPECT_EQ(oCRC.CalculateFile("/odd"), failed);
    EXPECT_EQ(oCRC.CalculateFile("/missing"), failed);
    EXPECT_TRUE(files.PathFound("/missing")) << "opening creates";
#if !defined(__SANITIZE_ADDRESS__) // which ends the program instead of refusing
    files.files["/odd"].nLength = std::numeric_limits<std::int64_t>::max();
    EXPECT_EQ(oCRC.CalculateFile("/odd"), failed);
#endif
    EXPECT_EQ(oCRC.Value(), nBefore);
    EXPECT_FALSE(oCRC.LastReadWaited());
}

} // namespace
