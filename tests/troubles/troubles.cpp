// SPDX-License-Identifier: MIT
// Run by hand as root, for minutes: power cuts, and two users at the same files.

#include "FileWorld.h"
#include "Operations.h"

#include <csignal>
#include <sys/prctl.h>
#include <sys/wait.h>

namespace {

using namespace fileops_test;
using support::FileWorld;

/// The power fails at each call that changes something; the next operation runs on what the disks then held.
class PowerCut : public Operations, public ::testing::WithParamInterface<const char*>
{
protected:
    /// Makes two empty disks, the first of which has the home trash.
    bool Make()
    {
        setenv("XDG_DATA_HOME", (sOne + "/share").c_str(), 1);
        const std::string sSystem = GetParam();
        const std::string sSize = sSystem == "xfs" ? "320M" : "128M"; // which has no small volumes
        return Shell("cd " + tree.sRoot + " && mkdir one two && truncate -s " + sSize + " one.disk two.disk" +
                     " && mkfs." + sSystem + " -q one.disk && mkfs." + sSystem + " -q two.disk") &&
               Mount("");
    }
    bool Mount(const std::string& sPrefix) const
    {
        return Shell("cd " + tree.sRoot + " && mount -o loop " + sPrefix + "one.disk one && mount -o loop " +
                     sPrefix + "two.disk two");
    }
    void Unmount() const { EXPECT_TRUE(Shell("umount " + sOne + ' ' + sTwo)); }
    void TearDown() override { Shell("umount -l " + sOne + ' ' + sTwo); }

    const std::string sOne = tree.sRoot + "/one", sTwo = tree.sRoot + "/two";
};

TEST_P(PowerCut, LosesNothing)
{
    if (!Make()) {
        GTEST_SKIP() << "no such volume can be made here";
    }
    FileWorld world(Folder("one/files"), Folder("two/files"), sOne + "/share/Trash");
    std::size_t nCuts = 0;
    for (const auto& scenario : kScenarios) {
        // Either the disk has what had to be on it by then, or also what else the file system had in hand. A
        // trash that is new is synced as a whole, another one note by note.
        for (const auto& [bCommitted, bNewTrash] : {std::pair(false, true), {true, true}, {true, false}}) {
            std::vector<std::string> calls;
            world.Prepare(scenario);
            if (!bNewTrash) {
                Shell("mkdir -p -m 700 " + world.sTrash + "/files " + world.sTrash + "/info");
            }
            Shell("sync -f " + sOne + ' ' + sTwo);
            const auto run = world.Run([&](const support::tCall& call, std::size_t) {
                if (call.bChanges) {
                    calls.push_back(call.sCall + ' ' + call.sPath);
                    const std::string sCommit = "for d in one two; do date >$d/x; sync $d/x; done; ";
                    EXPECT_TRUE(Shell("cd " + tree.sRoot + " && " + (bCommitted ? sCommit : "") +
                                      "for d in one two; do cp --sparse=always $d.disk " +
                                      std::to_string(calls.size()) + "$d.disk; done"));
                }
                return 0;
            });
            ASSERT_EQ(world.Wrong(run), "") << scenario.pName;
            Unmount();
            const auto required = world.required;
            for (std::size_t n = 1; n <= calls.size(); ++n) {
                world.required = required;
                ASSERT_TRUE(Mount(std::to_string(n)));
                std::string sWrong = world.Lost();
                const auto next = world.RunNext();
                sWrong += world.Lost() + world.LeftBehind() + (next.Ended() ? "" : "the next one dies; ");
                EXPECT_EQ(sWrong, "")
                    << GetParam() << ", " << scenario.pName << (bCommitted ? ", committed" : "")
                    << (bNewTrash ? "" : ", trash in use") << ", power fails at call " << n << ", "
                    << calls[n - 1];
                Unmount();
                Shell("cd " + tree.sRoot + " && rm " + std::to_string(n) + "one.disk " + std::to_string(n) +
                      "two.disk");
                ++nCuts;
            }
            ASSERT_TRUE(Mount(""));
        }
    }
    std::cout << GetParam() << ": " << nCuts << " power cuts\n";
}

INSTANTIATE_TEST_SUITE_P(, PowerCut, ::testing::Values("ext4", "xfs", "btrfs"),
                         [](const auto& test) { return std::string(test.param); });

/// A folder of another user is swapped for a link to a private one all the time while its files are trashed.
TEST(TwoUsers, NeitherLosesNorTouchesAnything)
{
    if (geteuid() != 0) {
        GTEST_SKIP() << "needs root to be two users";
    }
    constexpr uid_t kVictim = 65534;
    constexpr uid_t kAttacker = 65533;
    const TempTree tree{Home()};
    const std::string sTheirs = tree.sRoot + "/theirs";
    const std::string sShared = sTheirs + "/shared";
    const std::string sPrivate = tree.sRoot + "/private";
    fs::permissions(tree.sRoot, fs::perms(0755));
    fs::remove_all(Home() + "/share");
    std::vector<std::string> paths;
    for (std::size_t n = 0; n < 2000; ++n) {
        paths.push_back(tree.File("theirs/shared/" + std::to_string(n), "shared " + std::to_string(n)));
        tree.File("private/" + std::to_string(n), "private " + std::to_string(n));
    }
    ASSERT_TRUE(Shell("cd " + tree.sRoot +
                      " && chown -R 65534 private theirs/shared && chown 65533 theirs theirs/shared" +
                      " && chmod 777 theirs/shared && chmod 700 private"));
    const pid_t attacker = fork();
    if (attacker == 0) {
        prctl(PR_SET_PDEATHSIG, SIGKILL);
        const std::string sAside = sTheirs + "/aside";
        for (bool bReady = setuid(kAttacker) == 0; bReady;) {
            usleep(300);
            ::rename(sShared.c_str(), sAside.c_str());
            bReady = symlink(sPrivate.c_str(), sShared.c_str()) == 0;
            usleep(300);
            bReady = unlink(sShared.c_str()) == 0 && ::rename(sAside.c_str(), sShared.c_str()) == 0 && bReady;
        }
        _exit(1);
    }
    const auto work = [&] {
        support::ScriptedOperations user;
        desktop::ShellFileOperations operations(user);
        const bool bVictim = setresgid(kVictim, kVictim, kVictim) == 0 && setuid(kVictim) == 0;
        operations.SHFileOperationA(support::Request(bVictim ? FO_DELETE : 0, paths));
        return std::to_string(user.outcome.nFilesDone) + ' ' + std::to_string(user.outcome.notDone.size());
    };
    const auto process = support::Supervise({}, work, {});
    kill(attacker, SIGKILL);
    waitpid(attacker, nullptr, 0);
    const Bin bin = Restorable();
    // The attacker may have ended with the link in place.
    const std::string sThere = fs::exists(sTheirs + "/aside") ? sTheirs + "/aside" : sShared;
    for (std::size_t n = 0; n < paths.size(); ++n) {
        const std::string sName = '/' + std::to_string(n);
        const std::string sShown = "shared " + std::to_string(n);
        EXPECT_TRUE(Content(sThere + sName) == sShown || bin.contains({paths[n], sShown}));
        EXPECT_EQ(Content(sPrivate + sName), "private " + std::to_string(n));
    }
    std::cout << "two users: done and not done " << process.sSaid << '\n';
    EXPECT_EQ(process.sSaid, std::to_string(bin.size()) + ' ' + std::to_string(paths.size() - bin.size()));
}

} // namespace
