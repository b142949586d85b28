// SPDX-License-Identifier: MIT
#include "SearchWorkers.h"

#include "LiteralSearch.h"
#include "PosixFiles.h"
#include "SlowDisk.h"
#include "TempTree.h"
#include "mDataOperation.h"

#include <atomic>
#include <csignal>
#include <cstdint>
#include <fcntl.h>
#include <future>
#include <sched.h>
#include <thread>
#include <tuple>

namespace {

namespace fs = std::filesystem;
namespace disk = support::disk;
using support::LiteralSearch;

/// Searches real files by content; nothing of it may be left behind.
class SearchWorkers : public ::testing::Test
{
protected:
    struct tEvents final : platform::EventLoop {
        void DoEvents(std::int64_t) override { happens(); }
        std::function<void()> happens = [] {};
    };

    SearchWorkers()
    {
        platform::UseSystem({&files, &events, platform::System().screen, platform::System().messages});
    }

    void TearDown() override
    {
        WaitForAll();
        EXPECT_EQ(support::OpenDescriptors(), m_nBefore);
    }

    static void WaitForAll()
    {
        while (desktop::SearchWorkers::Alive() > 0) {
            std::this_thread::yield();
        }
    }

    /// How many rows a search of this folder comes to.
    std::size_t Search(const std::string& sFolder)
    {
        world.lvFolders.ListItems.Clear();
        world.AddFolder(sFolder);
        world.mnuOptionsSearchContent.SetChecked(true);
        search::mnuSearchFind_Click();
        return world.lvFiles.ListItems.Count();
    }

    support::TempTree tree;
    desktop::PosixFiles files;
    tEvents events;
    support::ScriptedSearch world;
    std::ptrdiff_t m_nBefore = support::OpenDescriptors();
};

TEST_F(SearchWorkers, LeaveADiskThatHangsToItself)
{
    for (const char* pFile : {"hangs/deep/x", "hangs/deep/y", "fine/x1", "fine/x2"}) {
        tree.File(pFile, "same");
    }
    const std::tuple<const char*, disk::Call, const char*, std::size_t> cases[] = {
        // At the end how many files the search knows of by then.
        {"opening the folder to be searched", disk::Call::Open, "hangs", 0},
        {"listing it", disk::Call::List, "hangs", 0},
        {"listing a folder below", disk::Call::List, "deep", 0},
        {"opening a file", disk::Call::Open, "x", 2},
        {"reading a file", disk::Call::Read, "y", 2},
    };
    for (const auto& [pWhat, call, pName, nFiles] : cases) {
        SCOPED_TRACE(pWhat);
        std::promise<void> released;
        std::atomic<int> nHeld = 0;
        disk::Arm(call, pName, [&, until = released.get_future().share()] {
            ++nHeld;
            until.wait();
        });
        // Cancel is clicked while the disk hangs.
        events.happens = [&] { search::bStopped = search::bStopped || nHeld > 0; };
        EXPECT_EQ(Search(tree.sRoot + "/hangs"), 0U);
        EXPECT_EQ(nHeld, 1);
        const auto table = LiteralSearch::TableOfProgram();
        EXPECT_EQ(table.size(), nFiles);
        for (const auto& entry : table) {
            EXPECT_TRUE(entry.sCRC.empty() && !entry.bDone) << entry.sName;
        }
        // Others can be searched meanwhile.
        events.happens = [] {};
        EXPECT_EQ(Search(tree.sRoot + "/fine"), 2U);
        EXPECT_GE(desktop::SearchWorkers::Alive(), 1U);
        disk::Disarm();
        released.set_value();
        EXPECT_EQ(Search(tree.sRoot + "/hangs"), 2U);
        WaitForAll(); // they use what goes with this case
    }
}

/// What a search leaves, of itself and of the tree; the same wherever that lies.
std::string Outcome(const std::vector<std::string>& rows, const std::vector<LiteralSearch::tEntry>& table,
                    const std::string& sRoot)
{
    std::string sOutcome;
    for (const std::string& sRow : rows) {
        sOutcome += sRow[0] + sRow.substr(2 + sRoot.size(), sRow.find('|') - 2 - sRoot.size()) + "\n";
    }
    for (const auto& entry : table) {
        sOutcome += entry.sName + (entry.bDone ? " done " : " ") + entry.sCRC + "\n";
    }
    for (const auto& entry : fs::recursive_directory_iterator(sRoot)) {
        const bool bSize = fs::is_regular_file(entry.symlink_status());
        sOutcome += entry.path().lexically_relative(sRoot).string() + " " +
                    std::to_string(static_cast<int>(entry.symlink_status().type())) + " " +
                    std::to_string(bSize ? entry.file_size() : 0) + "\n";
    }
    return sOutcome;
}

/// Leaves this process one processor for its life, so that a search starts with one worker.
class OneProcessor
{
public:
    OneProcessor()
    {
        EXPECT_EQ(sched_getaffinity(0, sizeof m_before, &m_before), 0);
        cpu_set_t one;
        CPU_ZERO(&one);
        CPU_SET(static_cast<unsigned>(sched_getcpu()), &one);
        EXPECT_EQ(sched_setaffinity(0, sizeof one, &one), 0);
    }
    ~OneProcessor() { EXPECT_EQ(sched_setaffinity(0, sizeof m_before, &m_before), 0); }
    OneProcessor(const OneProcessor&) = delete;
    OneProcessor& operator=(const OneProcessor&) = delete;

private:
    cpu_set_t m_before{};
};

TEST_F(SearchWorkers, MeetWhatOthersDoMeanwhileAsTheComparisonAloneDoes)
{
    const OneProcessor processor; // one worker, which reads in the order of the comparison
    const std::tuple<const char*, disk::Call, const char*, const char*> cases[] = {
        {"vanishes", disk::Call::Open, "b", "rm d/b"},
        {"vanishes open", disk::Call::Read, "b", "rm d/b"},
        {"shrinks", disk::Call::Open, "b", "truncate -s 2 d/b"},
        {"shrinks open", disk::Call::Read, "b", "truncate -s 2 d/b"},
        {"grows", disk::Call::Open, "b", "truncate -s 9999 d/b"},
        {"is a FIFO", disk::Call::Open, "b", "rm d/b && mkfifo d/b"},
        {"is a folder", disk::Call::Open, "b", "rm d/b && mkdir d/b"},
        {"is a link", disk::Call::Open, "b", "ln -sf a d/b"},
        {"is another file", disk::Call::Open, "b", "mv d/other d/b"},
        {"its folder has gone", disk::Call::Open, "b", "rm -r d"},
        {"its folder is a link to another", disk::Call::Open, "b",
         "mv d e && mkdir private && ln -s private d"},
        {"its folder is renamed while it is listed", disk::Call::List, "d", "mv d e"},
        {"it vanishes while its folder is listed", disk::Call::List, "d", "rm d/b"},
    };
    for (const auto& [pWhat, call, pName, pChange] : cases) {
        SCOPED_TRACE(pWhat);
        const auto outcome = [&, onCall = call, pOf = pName, pForShell = pChange](bool bLiteral) {
            const support::TempTree place;
            for (const char* pFile : {"d/a", "d/b", "d/c", "d/other", "z"}) {
                place.File(pFile, pFile == std::string("d/other") ? "unlike" : "like it");
            }
            Search(tree.sRoot); // nothing: the world starts over
            const std::string sCommand = "cd " + place.sRoot + " && " + pForShell;
            disk::Arm(onCall, pOf, [&, done = std::make_shared<std::once_flag>()] {
                std::call_once(*done, [&] { EXPECT_EQ(std::system(sCommand.c_str()), 0); });
            });
            if (!bLiteral) {
                Search(place.sRoot);
            }
            world.lvFolders.ListItems.Clear();
            world.AddFolder(place.sRoot);
            search::bStopped = !bLiteral;
            const auto literal =
                bLiteral ? std::optional<LiteralSearch>(std::in_place, world, search::PairKey::Size)
                         : std::nullopt;
            disk::Disarm();
            return Outcome(literal ? literal->rows : world.Rows(),
                           literal ? literal->table : LiteralSearch::TableOfProgram(), place.sRoot);
        };
        EXPECT_EQ(outcome(false), outcome(true));
    }
}

TEST_F(SearchWorkers, WaitForALeaseToBeGivenUp)
{
    std::signal(SIGIO, SIG_IGN); // by which the kernel tells that it wants it back
    const std::string sLeased = tree.File("a", "unlike b");
    tree.File("b", "unlike a");
    const int hLeased = open(sLeased.c_str(), O_RDWR | O_CLOEXEC);
    ASSERT_EQ(fcntl(hLeased, F_SETLEASE, F_WRLCK), 0);
    events.happens = [&] {
        if (fcntl(hLeased, F_GETLEASE) != F_WRLCK) { // somebody waits for it
            fcntl(hLeased, F_SETLEASE, F_UNLCK);
        }
    };
    EXPECT_EQ(Search(tree.sRoot), 0U);
    EXPECT_EQ(search::FileList[0].sCRC.View() == "0", false);
    close(hLeased);
}

} // namespace
