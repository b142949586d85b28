// SPDX-License-Identifier: MIT
// Two users at the same files. Run by hand as root.

#include "Operations.h"

#include <csignal>
#include <iostream>
#include <sys/prctl.h>
#include <sys/wait.h>

namespace {

using namespace fileops_test;

/// A folder of another user is swapped for a link to a private one all the time while its files are trashed.
TEST(TwoUsers, NeitherLosesNorTouchesAnything)
{
    if (geteuid() != 0) {
        GTEST_SKIP() << "needs root to be two users";
    }
    constexpr uid_t kVictim = 65534;
    constexpr uid_t kAttacker = 65533;
    constexpr std::size_t kFiles = 2000;
    const TempTree tree{Home()};
    const std::string sTheirs = tree.sRoot + "/theirs";
    const std::string sShared = sTheirs + "/shared";
    const std::string sPrivate = tree.sRoot + "/private";
    fs::permissions(tree.sRoot, fs::perms(0755));
    fs::remove_all(Home() + "/share");
    std::vector<std::string> paths;
    for (std::size_t n = 0; n < kFiles; ++n) {
        const std::string sName = std::to_string(n);
        paths.push_back(tree.File("theirs/shared/" + sName, "shared " + sName));
        tree.File("private/" + sName, "private " + sName);
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
    const auto process = support::Supervise(
        {},
        [&] {
            support::ScriptedOperations user;
            desktop::ShellFileOperations operations(user);
            const bool bVictim = setresgid(kVictim, kVictim, kVictim) == 0 && setuid(kVictim) == 0;
            operations.SHFileOperationA(support::Request(bVictim ? platform::FO_DELETE : 0, paths));
            return std::to_string(user.outcome.nFilesDone) + ' ' +
                   std::to_string(user.outcome.notDone.size());
        },
        {});
    kill(attacker, SIGKILL);
    waitpid(attacker, nullptr, 0);
    const Bin bin = Restorable();
    std::size_t nLost = 0;
    std::size_t nTouched = 0;
    for (std::size_t n = 0; n < kFiles; ++n) {
        const std::string sName = std::to_string(n);
        const bool bThere =
            Content(sShared + '/' + sName) + Content(sTheirs + "/aside/" + sName) == "shared " + sName;
        nLost += bThere || bin.contains({paths[n], "shared " + sName}) ? 0U : 1U;
        nTouched += Content(sPrivate + '/' + sName) == "private " + sName ? 0U : 1U;
    }
    std::cout << "two users: done and not done " << process.sSaid << ", in the trash " << bin.size()
              << ", lost " << nLost << ", touched " << nTouched << '\n';
    EXPECT_EQ(nLost + nTouched, 0U);
    EXPECT_EQ(process.sSaid, std::to_string(bin.size()) + ' ' + std::to_string(kFiles - bin.size()));
}

} // namespace
