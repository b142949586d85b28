#include "mDataOperation.h"

#include "LiteralSearch.h"

#include <gtest/gtest.h>
#include <random>

namespace {

using search::FindDuplicatesByContent;
using search::FindDuplicatesByName;
using support::LiteralSearch;
using support::ScriptedSearch;
using Rows = std::vector<std::string>;

void AddFile(ScriptedSearch& world, const std::string& sFolder, const std::string& sName,
             const std::string& sText)
{
    world.files.folders[sFolder].push_back({sName, false, static_cast<std::int64_t>(sText.size())});
    world.files.files[sFolder + sName] = {sText};
}

TEST(Search, StartsOverAndShowsWhereItIs)
{
    const std::string sLong = "/a/" + std::string(60, 'b') + "/";
    for (const bool bContent : {true, false}) {
        ScriptedSearch world;
        world.AddFolder("/a");
        AddFile(world, "/a/", "x", "1");
        AddFile(world, "/a/", "X", "1");
        world.mnuOptionsSearchContent.SetChecked(bContent);
        search::mnuSearchFind_Click();
        // Paths that differ only in letter case are one file.
        EXPECT_EQ(world.ShortRows(), Rows{});
        AddFile(world, "/a/", "y", "2");
        world.files.folders["/a/"].push_back({std::string(60, 'b'), true});
        AddFile(world, sLong, "y", "2");
        AddFile(world, sLong, "z", "unlike any");
        world.lvFiles.ListItems.Add("/old/row", "row", 2);
        world.StatusBar1.Panels(2).SetText("7");
        search::mnuSearchFind_Click();
        EXPECT_EQ(world.StatusBar1.Panels(1).Text() + world.StatusBar1.Panels(2).Text(), "Done2");
        EXPECT_EQ(world.ShortRows(), (Rows{"2 /a/y", "4 " + sLong + "y"}));
        EXPECT_EQ(world.nBarMax, 5);
        EXPECT_EQ(world.nBar, 4);
        EXPECT_EQ(world.Labels(), "Comparing...|.." + std::string(55, 'b') + "|z");
        EXPECT_EQ(world.lvFiles.SelectedItem()->Selected(), !bContent);
        EXPECT_TRUE(search::bStopped);
    }
}

/// `nFiles` files in /a/ or below it, each second one of the same size as one before, on a cold disk or in
/// memory.
void AddPairs(ScriptedSearch& world, int nFiles, bool bCold, std::size_t nSize)
{
    for (int n = 0; n < nFiles; ++n) {
        AddFile(world, "/a/", std::to_string(n),
                std::string(nSize + static_cast<std::size_t>(n % (nFiles / 2)), 'x'));
    }
    for (auto& [sPath, file] : world.files.files) {
        file.bWaits = bCold;
    }
}

TEST(Search, AnnouncesWhatItWillReadWhenTheDiskIsCold)
{
    for (const bool bCold : {true, false}) {
        ScriptedSearch world;
        world.AddFolder("/a");
        AddPairs(world, 3000, bCold, 1);
        FindDuplicatesByContent();
        ASSERT_EQ(world.files.opened.size(), 3000U);
        // All but the first, which was waited for unannounced; in reading order, and not too far ahead.
        const Rows expected(world.files.opened.begin() + 1, world.files.opened.end());
        EXPECT_EQ(world.files.announced, bCold ? expected : Rows{});
        EXPECT_EQ(world.files.nMostAhead, bCold ? 512U : 0U);
    }
    ScriptedSearch large;
    large.AddFolder("/a");
    AddPairs(large, 200, true, 1'000'000);
    FindDuplicatesByContent();
    EXPECT_GT(large.files.nMostBytesAhead, 64'000'000);
    EXPECT_LT(large.files.nMostBytesAhead, 66'000'000);
}

TEST(Search, AnnouncesLittleForALoneColdFile)
{
    ScriptedSearch world;
    world.AddFolder("/a");
    AddPairs(world, 3000, false, 1);
    for (const char* pName : {"500", "900", "1300"}) {
        world.files.files[std::string("/a/") + pName].bWaits = true;
    }
    FindDuplicatesByContent();
    EXPECT_LE(world.files.announced.size(), 3 * 16U);
}

TEST(Search, LooksAtFewPairsWhateverTheFilesAreLike)
{
    const struct {
        const char* pWhat;
        std::string (*nameOf)(int n);
        std::string (*contentOf)(int n);
    } tables[] = {
        {"one size", [](int n) { return std::to_string(n); },
         [](int n) { return std::to_string(10'000 + n); }},
        {"alike", [](int n) { return std::to_string(n); }, [](int) { return std::string("same"); }},
        {"two sizes", [](int n) { return std::to_string(n); },
         [](int n) { return std::string(n % 2 == 0 ? 1U : 2U, 'x'); }},
    };
    for (const auto& table : tables) {
        for (const bool bContent : {true, false}) {
            ScriptedSearch world;
            world.AddFolder("/a");
            for (int n = 0; n < 2000; ++n) {
                AddFile(world, "/a/", table.nameOf(n), table.contentOf(n));
            }
            world.mnuOptionsSearchContent.SetChecked(bContent);
            search::mnuSearchFind_Click();
            EXPECT_LT(world.nYields, 2000 * 10) << table.pWhat;
        }
    }
}

/// A small random world in which everything that can go wrong goes wrong often.
void MakeWorld(ScriptedSearch& world, unsigned nSeed)
{
    std::mt19937 random(nSeed);
    const auto below = [&](unsigned n) { return static_cast<unsigned>(random() % n); };
    const std::vector<std::string> names{"a", "A", "b", "ä", "Ä", "\xE4", ".h", "x\xFF", "X\xFF", "ß", "SS"};
    const std::vector<std::string> folders{"/F/", "/f/", "/F/s/", "/f/S/", "/F/\xFF/", "/f/\xFF/"};
    for (const auto& sFolder : folders) {
        auto& listed = world.files.folders[sFolder];
        for (unsigned n = below(7); n > 0; --n) {
            const std::string sName = names[below(static_cast<unsigned>(names.size()))];
            const std::int64_t nSize = below(8) == 0 ? 10'000'001 : below(3);
            listed.push_back({sName, false, nSize, static_cast<std::int64_t>(random())});
            world.files.files[sFolder + sName] = {below(2) == 0 ? "xy" : "zw", below(8) != 0, below(8) != 0,
                                                  below(3) == 0};
        }
    }
    world.files.folders["/F/"].push_back({"s", true});
    world.files.folders["/f/"].push_back({"S", true});
    for (const auto& sFolder : folders) {
        if (below(3) != 0) {
            world.AddFolder(sFolder.substr(0, sFolder.size() - 1));
        }
    }
    world.mnuOptionsHidden.SetChecked(below(2) == 0);
}

TEST(Search, DoesExactlyWhatComparingAllPairsDoes)
{
    std::size_t nRows = 0;
    std::size_t nCancelled = 0;
    for (unsigned nSeed = 0; nSeed < 6000; ++nSeed) {
        const auto mode = static_cast<LiteralSearch::Mode>(nSeed % 3);
        const std::int64_t nCancelStep = nSeed % 2 == 0 ? 0 : 1 + nSeed * 7919 % 400;

        ScriptedSearch literalWorld;
        MakeWorld(literalWorld, nSeed);
        literalWorld.nCancelStep = nCancelStep;
        LiteralSearch literal(literalWorld, mode);

        ScriptedSearch world;
        MakeWorld(world, nSeed);
        if (world.lvFolders.ListItems.Count() == 0) {
            continue;
        }
        world.nCancelStep = nCancelStep;
        world.mnuOptionsSearchContent.SetChecked(mode == LiteralSearch::Mode::Content);
        world.mnuOptionsSearchNameSize.SetChecked(mode == LiteralSearch::Mode::NameAndSize);
        search::mnuSearchFind_Click();

        ASSERT_EQ(world.Rows(), literal.rows) << "seed " << nSeed;
        ASSERT_EQ(support::TableOfProgram(), literal.table) << "seed " << nSeed;
        ASSERT_EQ(world.files.opened, literalWorld.files.opened) << "seed " << nSeed;
        if (nCancelStep == 0 || world.nSteps < nCancelStep) {
            ASSERT_EQ(world.nSteps, literalWorld.nSteps) << "seed " << nSeed;
        } else {
            ++nCancelled;
        }
        if (literal.nPairsEntry > 0) {
            const auto& shown = literal.table[static_cast<std::size_t>(literal.nPairsEntry) - 1];
            ASSERT_EQ(world.Labels(), "Comparing...|" + shown.sPath + "|" + shown.sName) << "seed " << nSeed;
        }
        nRows += literal.rows.size();
    }
    EXPECT_GT(nRows, 10'000U); // the worlds are not all dull
    EXPECT_GT(nCancelled, 500U);
}

} // namespace
