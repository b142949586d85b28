// SPDX-License-Identifier: MIT
#include "mCompactPath.h"

#include <cstdint>
#include <gtest/gtest.h>
#include <tuple>

namespace {

TEST(CompactPath, ShortensAsTheTableSays)
{
    const std::string sTools = R"(C:\Program Files\Common Files\Shared\Tools\)";
    const std::string sReport = R"(C:\Docs\report.txt)";
    // Letters of two, three and four bytes, and bytes that are no letter at all.
    const std::string sOdd = "/häuser/\xE2\x82\xAC/\xF0\x9F\x98\x80\xFF\xFE/größe";
    const std::tuple<std::string, std::int16_t, bool, std::string> cases[] = {
        {sTools + "readme.txt", 30, false, R"(C:\Program Files...\readme.txt)"},
        {sTools, 30, false, R"(C:\Program Files\Comm...\Tools)"},
        {sTools, 30, true, R"(C:\Program Files\Com...\Tools\)"},
        {R"(C:\Data\)", 8, false, R"(C:\Data\)"},
        {R"(C:\Data\)", 7, false, R"(C:\Data)"},
        {R"(C:\ab\tail)", 8, false, R"(...\tail)"}, // a tail of just the width
        {R"(C:\ab\tail)", 9, false, R"(C...\tail)"},
        {R"(C:\ab\c\\)", 7, false, R"(C:\...\)"}, // one trailing separator goes, not two
        {"no-separator-at-all", 17, false, "..eparator-at-all"},
        {sReport, 3, false, "..t"},
        {sReport, 2, false, "xt"},
        {sReport, 0, false, ""},
        {R"(\)", 0, true, R"(\)"},
        {R"(\)", -1, true, ""},
        {sOdd, 12, false, "/hä.../größe"},
        {sOdd, 4, false, "..ße"},
    };
    for (const auto& [sPath, nWidth, bTrailing, sExpected] : cases) {
        const char cSeparator = sPath == sOdd ? '/' : '\\';
        EXPECT_EQ(search::CompactPath(sPath, nWidth, bTrailing, cSeparator), sExpected)
            << sPath << " " << nWidth;
    }
}

} // namespace
