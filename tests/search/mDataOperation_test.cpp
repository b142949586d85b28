// SPDX-License-Identifier: MIT
#include "mDataOperation.h"

#include "LiteralSearch.h"

#include <algorithm>
#include <cstdint>
#include <new>
#include <random>

namespace {

using search::PairKey;
using support::LiteralSearch;
using support::ScriptedSearch;
using Paths = std::vector<std::string>;

void AddFile(ScriptedSearch& world, const std::string& sFolder, const std::string& sName,
             const std::string& sText)
{
    world.files.folders[sFolder].push_back({sName, false, static_cast<std::int64_t>(sText.size())});
    world.files.files[sFolder + sName] = {sText};
}

void Search(ScriptedSearch& world, PairKey key)
{
    world.mnuOptionsSearchContent.SetChecked(key == PairKey::Size);
    world.mnuOptionsSearchNameSize.SetChecked(key == PairKey::NameAndSize);
    search::mnuSearchFind_Click();
}

TEST(Search, DoesAllOnTheFormsInItsOrder)
{
    const std::string sLong = "/a/" + std::string(60, 'b') + "/";
    const std::string sShort = ".." + std::string(55, 'b');
    for (const PairKey key : {PairKey::Size, PairKey::Name, PairKey::NameAndSize}) {
        for (const bool bEnabled : {false, true}) {
            ScriptedSearch world;
            Search(world, key);
            EXPECT_EQ(world.sCalls, "; message Please add at least one folder.");
            world.AddFolder("/a");
            AddFile(world, "/a/", "x", "1");
            AddFile(world, "/a/", "X", "1"); // paths that differ only in letter case are one file
            AddFile(world, "/a/", "y", "2");
            world.files.folders["/a/"].push_back({std::string(60, 'b'), true});
            AddFile(world, sLong, "y", "2");
            AddFile(world, sLong, "z", "unlike any");
            world.lvFiles.ListItems.Add("/old/row", "row", 2);
            world.sCalls.clear();
            world.bKeepsEnabled = bEnabled;
            Search(world, key);
            // Only the searches by name turn to the list, whose focus needs a form that somebody has enabled.
            const std::string sTurn = bEnabled ? "; on focused; selected" : "; selected";
            const std::string sFocus = key == PairKey::Size ? "" : sTurn;
            EXPECT_EQ(
                world.sCalls,
                "; show; menus; hourglass; panel Working...; off" + std::string(bEnabled ? "; on" : "") +
                    "; cleared; panel 0; arrow; status Scanning...; folder picked; refresh; folder " +
                    sShort +
                    "; bar 0; max 5; status Comparing...; bar 0; folder /a/; file x; bar 1; bar 2; file y"
                    "; row; row; bar 3; bar 4; folder " +
                    sShort + "; file z" + sFocus + "; panel 2; menus; arrow; panel Done" +
                    (bEnabled ? "" : "; on") + "; unload");
            EXPECT_EQ(world.lvFiles.ListItems(2).Key(), sLong + "y");
            EXPECT_TRUE(search::bStopped);
        }
    }
}

TEST(Search, WithoutMemoryKeepsWhatItHasFoundAndSaysSo)
{
    ScriptedSearch world;
    world.AddFolder("/a");
    for (std::size_t n = 0; n < 40; ++n) {
        AddFile(world, "/a/", std::to_string(n), std::string(1 + n / 2, 'x'));
    }
    auto& rows = world.lvFiles.ListItems;
    world.files.nSeed = 1;
    world.files.onLate = [&] { rows.Count() < 2 ? void() : throw std::bad_alloc(); };
    Search(world, PairKey::Size);
    EXPECT_GE(rows.Count(), 2U);
    EXPECT_LT(rows.Count(), 40U);
    EXPECT_TRUE(world.sCalls.find("panel Done; on; unload; message There is not enough memory") !=
                std::string::npos)
        << world.sCalls;
}

TEST(Search, LooksAtFewPairsWhateverTheFilesAreLike)
{
    for (const auto& [nSizes, nContents] : {std::pair(1, 1), std::pair(2, 1), std::pair(1, 2000)}) {
        for (const PairKey key : {PairKey::Size, PairKey::Name, PairKey::NameAndSize}) {
            ScriptedSearch world;
            world.AddFolder("/a");
            for (int n = 0; n < 2000; ++n) {
                const std::string sLead(static_cast<std::size_t>(n % nSizes), 'x');
                AddFile(world, "/a/", std::to_string(n), sLead + std::to_string(10'000 + n % nContents));
            }
            Search(world, key);
            EXPECT_LT(world.nYields, 2000 * 10) << nSizes << ' ' << nContents;
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
            if (below(8) != 0) { // else it has gone since
                world.files.files[sFolder + sName] = {below(2) == 0 ? "xy" : "zw", below(8) != 0,
                                                      below(8) != 0};
            }
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

/// True if each path of `some` is in `all`, as often as there.
bool AllAmong(Paths some, Paths all)
{
    std::sort(some.begin(), some.end());
    std::sort(all.begin(), all.end());
    return std::includes(all.begin(), all.end(), some.begin(), some.end());
}

TEST(Search, DoesExactlyWhatComparingAllPairsDoes)
{
    std::size_t nRows = 0, nCancelled = 0, nCancelledInWait = 0, nCreated = 0;
    for (unsigned nSeed = 0; nSeed < 6000; ++nSeed) {
        SCOPED_TRACE(nSeed);
        const auto key = static_cast<PairKey>(nSeed % 3);

        ScriptedSearch world;
        MakeWorld(world, nSeed);
        if (world.lvFolders.ListItems.Count() == 0) {
            continue;
        }
        std::int64_t nCancelStep = nSeed % 2 == 0 ? 0 : 1 + nSeed * 7919 % 400;
        world.nCancelStep = nCancelStep;
        world.files.nSeed = nSeed % 7;
        bool bInWait = false;
        unsigned nLate = nSeed % 4 == 0 ? 1 + nSeed % 11 : 0; // the wait in which Cancel is clicked
        world.files.onLate = [&] {
            if (--nLate == 0) {
                bInWait = search::bStopped = true;
                nCancelStep = world.nSteps;
            }
        };
        Search(world, key);
        const auto table = LiteralSearch::TableOfProgram();

        ScriptedSearch literalWorld;
        MakeWorld(literalWorld, nSeed);
        literalWorld.nCancelStep = nCancelStep;
        const LiteralSearch literal(literalWorld, key);
        ScriptedSearch wholeWorld;
        MakeWorld(wholeWorld, nSeed);
        const LiteralSearch whole(wholeWorld, key);

        ASSERT_EQ(world.Rows(), literal.rows);
        ASSERT_EQ(table, literal.table);
        ASSERT_TRUE(AllAmong(literalWorld.files.opened, world.files.opened)) << "not read";
        ASSERT_TRUE(AllAmong(world.files.opened, wholeWorld.files.opened)) << "read in vain";
        ASSERT_EQ(world.files.created, literalWorld.files.created);
        if (nCancelStep == 0 || world.nSteps < nCancelStep) {
            ASSERT_EQ(world.nSteps, literalWorld.nSteps);
        } else {
            ++(bInWait ? nCancelledInWait : nCancelled);
        }
        ASSERT_TRUE(literal.sLabels.empty() || world.Labels() == literal.sLabels) << world.Labels();
        nRows += literal.rows.size();
        nCreated += world.files.created.size();
    }
    EXPECT_GT(nRows, 10'000U); // the worlds are not all dull
    EXPECT_GT(nCancelled, 500U);
    EXPECT_GT(nCancelledInWait, 100U);
    EXPECT_GT(nCreated, 100U);
}

} // namespace
