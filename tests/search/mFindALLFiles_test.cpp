#include "mFindALLFiles.h"

#include "ScriptedSearch.h"

#include <gtest/gtest.h>

namespace {

using search::FindAllFiles;
using support::ScriptedSearch;
using Names = std::vector<std::string>;

Names Found()
{
    Names names;
    for (std::size_t n = 0; n < static_cast<std::size_t>(search::FileCount); ++n) {
        names.push_back(search::FileList[n].FullPath());
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
    search::ClearResults();
    world.nSteps = 0;
}

TEST(FindAllFiles, TakesAFoldersFilesBeforeItsSubfolders)
{
    ScriptedSearch world;
    MakeTree(world);
    for (const char* pRoot : {"/r", "/r/"}) {
        search::ClearResults();
        FindAllFiles(pRoot);
        EXPECT_EQ(Found(), (Names{"/r/1", "/r/3", "/r/s/5", "/r/s/t/6"}));
    }
    EXPECT_EQ(world.Labels(), "|/r/gone|");
    world.mnuOptionsHidden.SetChecked(true);
    search::ClearResults();
    FindAllFiles("/r");
    EXPECT_EQ(Found(), (Names{"/r/1", "/r/.2", "/r/3", "/r/.h/4", "/r/s/5", "/r/s/t/6"}));
    // A hidden folder that is named itself is walked all the same, and results add up.
    world.mnuOptionsHidden.SetChecked(false);
    FindAllFiles("/r/.h");
    EXPECT_EQ(search::FileCount, 7);
}

TEST(FindAllFiles, StopsAtAnyStepAndKeepsWhatItHas)
{
    ScriptedSearch world;
    MakeTree(world);
    FindAllFiles("/r");
    const Names all = Found();
    const std::int64_t nSteps = world.nSteps;
    ASSERT_EQ(nSteps, 6 + 6 + 2 + 2 + 2 + 1 + 1 + 1); // entries twice, descents once, hidden ones counted
    for (std::int64_t nStop = 1; nStop <= nSteps; ++nStop) {
        MakeTree(world);
        search::bStopped = false;
        world.nCancelStep = nStop;
        FindAllFiles("/r");
        EXPECT_LE(world.nSteps, nStop + 2); // each level above notices at its next step
        const Names found = Found();
        EXPECT_LE(found.size(), all.size());
        EXPECT_TRUE(std::equal(found.begin(), found.end(), all.begin()));
    }
}

TEST(FindAllFiles, FillsEntries)
{
    ScriptedSearch world;
    setenv("TZ", "XYZ-2:30", 1);
    tzset();
    world.files.folders = {
        {"/r/",
         {{"limit", false, 10'000'000, 1'075'965'423},
          {"above", false, 10'000'001, -2'209'183'200}, // 29 December 1899 at 20:30 local time
          {"huge", false, 1LL << 62, 253'402'300'800},  // past the year 9999
          {"odd", false, 0, std::numeric_limits<std::int64_t>::min()}}}};
    search::ClearResults();
    FindAllFiles("/r");
    const struct {
        std::int64_t cySize;
        double dtDate;
        bool bDone;
    } expected[] = {{10'000'000, 38022 + (9 * 3600 + 47 * 60 + 3) / 86400.0, false},
                    {10'000'001, -1 - 20.5 / 24, true},
                    {1LL << 62, 0, true},
                    {0, 0, false}};
    for (std::size_t n = 0; n < std::size(expected); ++n) {
        EXPECT_EQ(search::FileList[n].cySize, expected[n].cySize);
        EXPECT_DOUBLE_EQ(search::FileList[n].dtDate, expected[n].dtDate);
        EXPECT_EQ(search::FileList[n].bDone, expected[n].bDone);
        EXPECT_TRUE(search::FileList[n].sCRC.empty());
    }
    EXPECT_EQ(search::FileTimeToText({1'075'965'423}), "5/2/2004 9:47:3");
    EXPECT_EQ(search::FileTimeToText({253'402'300'800}), "");
    EXPECT_EQ(search::TrimNull(std::string_view("ab\0c\0", 5)), "ab");
    EXPECT_EQ(search::TrimNull("abc"), "abc");
}

TEST(FindAllFiles, TakesAFileOnceHoweverManyMountsLeadToIt)
{
    ScriptedSearch world;
    world.files.folders = {{"/a/", {{"f"}}}, {"/b/", {{"f"}}}, {"/c/", {{"f"}}}, {"/d/", {{"f"}}}};
    world.files.identities = {{"/a/", {1, 7, 1}}, {"/b/", {1, 7, 2}}, {"/c/", {1, 8, 2}}, {"/d/", {2, 7, 3}}};
    search::ClearResults();
    for (const char* pRoot : {"/a", "/b", "/a", "/c", "/d", "/b"}) {
        FindAllFiles(pRoot);
    }
    std::string sDone;
    for (std::size_t n = 0; n < 6; ++n) {
        sDone += search::FileList[n].bDone ? 'x' : '-';
    }
    EXPECT_EQ(sDone, "-x---x"); // a folder listed twice is left to the comparison
    // The next search knows nothing of it.
    search::ClearResults();
    FindAllFiles("/b");
    EXPECT_FALSE(search::FileList[0].bDone);
}

TEST(FindAllFiles, EntersAtMost32767SubfoldersOfAFolder)
{
    ScriptedSearch world;
    auto& root = world.files.folders["/r/"];
    for (int n = 0; n < 32'769; ++n) {
        root.push_back({"d" + std::to_string(n), true});
        world.files.folders["/r/d" + std::to_string(n) + "/"] = {{"f"}};
    }
    root.push_back({"last"});
    search::ClearResults();
    FindAllFiles("/r");
    EXPECT_EQ(search::FileCount, 1 + 32'767);
    EXPECT_EQ(Found().back(), "/r/d32766/f");
}

} // namespace
