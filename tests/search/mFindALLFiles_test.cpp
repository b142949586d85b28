// SPDX-License-Identifier: MIT
#include "mFindALLFiles.h"

#include "ScriptedSearch.h"

#include <algorithm>
#include <cstdint>
#include <tuple>

namespace {

using search::FileList;
using support::ScriptedSearch;
using Names = std::vector<std::string>;

/// What walks of these folders find, one after the other.
Names Found(std::initializer_list<const char*> roots)
{
    search::ClearResults();
    const auto reading = platform::System().files->BeginReading({});
    for (const char* pRoot : roots) {
        search::FindAllFiles(pRoot, *reading);
    }
    Names names;
    for (std::size_t n = 0; n < static_cast<std::size_t>(search::FileCount); ++n) {
        names.push_back(FileList[n].FullPath());
    }
    return names;
}

/// /r/ with files before, between and after its subfolders, hidden and not, three levels deep.
void MakeTree(ScriptedSearch& world)
{
    world.files.folders = {
        {"/r/", {{"1"}, {".h", true}, {"s", true}, {".2"}, {"3"}, {"gone", true}}},
        {"/r/.h/", {{"4"}}},
        {"/r/s/", {{"t", true}, {"5"}}},
        {"/r/s/t/", {{"6"}}},
    };
}

TEST(FindAllFiles, TakesAFoldersFilesBeforeItsSubfolders)
{
    ScriptedSearch world;
    MakeTree(world);
    const Names seen{"/r/1", "/r/3", "/r/s/5", "/r/s/t/6"};
    EXPECT_EQ(Found({"/r"}), seen);
    EXPECT_EQ(Found({"/r/"}), seen);
    EXPECT_EQ(world.Labels(), "|/r/gone|");
    // A hidden folder that is named itself is walked all the same.
    EXPECT_EQ(Found({"/r/s", "/r/.h"}), (Names{"/r/s/5", "/r/s/t/6", "/r/.h/4"}));
    world.mnuOptionsHidden.SetChecked(true);
    EXPECT_EQ(Found({"/r"}), (Names{"/r/1", "/r/.2", "/r/3", "/r/.h/4", "/r/s/5", "/r/s/t/6"}));
}

TEST(FindAllFiles, StopsAtAnyStepAndKeepsWhatItHas)
{
    ScriptedSearch world;
    MakeTree(world);
    const Names all = Found({"/r"});
    const std::int64_t nSteps = world.nSteps;
    ASSERT_EQ(nSteps, 6 + 6 + 2 + 2 + 2 + 1 + 1 + 1); // entries twice, descents once, hidden ones counted
    for (std::int64_t nStop = 1; nStop <= nSteps; ++nStop) {
        search::bStopped = false;
        world.nSteps = 0;
        world.nCancelStep = nStop;
        world.files.nSeed = static_cast<unsigned>(nStop);
        const Names found = Found({"/r"});
        EXPECT_LE(world.nSteps, nStop + 2); // each level above notices at its next step
        ASSERT_LE(found.size(), all.size());
        EXPECT_TRUE(std::equal(found.begin(), found.end(), all.begin()));
    }
}

TEST(FindAllFiles, FillsEntries)
{
    ScriptedSearch world;
    setenv("TZ", "XYZ-2:30", 1);
    tzset();
    const std::tuple<std::int64_t, std::int64_t, double, bool> cases[] = {
        {10'000'000, 1'075'965'423, 38022 + (9 * 3600 + 47 * 60 + 3) / 86400.0, false},
        {10'000'001, -2'209'183'200, -1 - 20.5 / 24, true}, // 29 December 1899 at 20:30 local time
        {1LL << 62, 253'402'300'800, 0, true},              // past the year 9999
        {0, std::numeric_limits<std::int64_t>::min(), 0, false},
    };
    for (const auto& [cySize, nSeconds, dtDate, bDone] : cases) {
        world.files.folders["/r/"] = {{"f", false, cySize, nSeconds}};
        ASSERT_EQ(Found({"/r"}), Names{"/r/f"});
        EXPECT_EQ(FileList[0].cySize, cySize);
        EXPECT_DOUBLE_EQ(FileList[0].dtDate, dtDate);
        EXPECT_EQ(FileList[0].bDone, bDone) << cySize;
    }
    EXPECT_EQ(search::FileTimeToText({1'075'965'423}), "5/2/2004 9:47:3");
    EXPECT_EQ(search::FileTimeToText({253'402'300'800}), "");
}

TEST(FindAllFiles, TakesAFileOnceHoweverManyMountsLeadToIt)
{
    ScriptedSearch world;
    world.files.folders = {{"/a/", {{"f"}}}, {"/b/", {{"f"}}}, {"/c/", {{"f"}}}, {"/d/", {{"f"}}}};
    world.files.identities = {{"/a/", {1, 7, 1}}, {"/b/", {1, 7, 2}}, {"/c/", {1, 8, 2}}, {"/d/", {2, 7, 3}}};
    std::string sDone; // a folder listed twice is left to the comparison
    for (std::size_t n = Found({"/a", "/b", "/a", "/c", "/d", "/b"}).size(); n > 0; --n) {
        sDone += FileList[n - 1].bDone ? 'x' : '-';
    }
    EXPECT_EQ(sDone, "x---x-");
    Found({"/b"});
    EXPECT_FALSE(FileList[0].bDone) << "the next search knows nothing of the one before";
}

TEST(FindAllFiles, EntersAtMost32767SubfoldersOfAFolder)
{
    ScriptedSearch world;
    for (int n = 0; n < 32'769; ++n) {
        const std::string sName = "d" + std::to_string(n);
        world.files.folders["/r/"].push_back({sName, true});
        world.files.folders["/r/" + sName + "/"] = {{"f"}};
    }
    world.files.folders["/r/"].push_back({"last"});
    const Names found = Found({"/r"});
    ASSERT_EQ(found.size(), 1 + 32'767U);
    EXPECT_EQ(found.back(), "/r/d32766/f");
}

} // namespace
