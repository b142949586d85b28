// SPDX-License-Identifier: MIT
// File systems in user space that lie, fail late, hang or know less than others.

#include "Operations.h"

#include <chrono>
#include <csignal>
#include <sys/mount.h>
#include <sys/prctl.h>
#include <sys/wait.h>

namespace {

using namespace fileops_test;
using platform::FO_COPY;
using platform::FO_MOVE;

using Fuse = Operations;

/// A folder shown elsewhere by a file system with a quirk (tests/oddfs), while this object lives.
class OddFolder
{
public:
    OddFolder(const std::string& sBehind, std::string sThere, const char* pQuirk)
        : m_sThere(std::move(sThere)), m_nBefore(StatusOf(m_sThere).st_dev), m_process(fork())
    {
        if (m_process == 0) {
            prctl(PR_SET_PDEATHSIG, SIGKILL);
            execl(ODDFS, ODDFS, pQuirk, sBehind.c_str(), m_sThere.c_str(), nullptr);
            _exit(1);
        }
        for (int n = 0; n < 200 && !IsMounted() && waitpid(m_process, nullptr, WNOHANG) == 0; ++n) {
            usleep(10'000);
        }
    }
    OddFolder& operator=(OddFolder&&) = delete;
    ~OddFolder()
    {
        kill(m_process, SIGKILL);
        waitpid(m_process, nullptr, 0);
        // Who is not root has the system's own program do it.
        if (umount2(m_sThere.c_str(), MNT_DETACH) != 0 && IsMounted()) {
            EXPECT_EQ(std::system(("fusermount3 -u -z '" + m_sThere + "'").c_str()), 0);
        }
    }
    [[nodiscard]] bool IsMounted() const { return StatusOf(m_sThere).st_dev != m_nBefore; }

private:
    std::string m_sThere;
    dev_t m_nBefore;
    pid_t m_process;
};

TEST_F(Fuse, OnlyWhatArrivedWholeIsDone)
{
    const struct {
        const char* pName;
        const char* pQuirk;
        bool bFromThere;
        bool bDone;
    } cases[] = {{"from an ordinary one", "none", true, true},
                 {"to an ordinary one", "none", false, true},
                 {"from one that says that all sizes are 0", "says-size-0", true, false},
                 {"to one that says that all sizes are 0", "says-size-0", false, false},
                 {"to one that fails at the close", "fails-at-close", false, false},
                 {"from one that only renames plainly", "renames-plainly", true, true},
                 {"to one that only renames plainly", "renames-plainly", false, true}};
    for (const auto& each : cases) {
        for (const unsigned wFunc : {FO_COPY, FO_MOVE}) {
            const std::string sWhat = std::string(wFunc == FO_COPY ? "copy " : "move ") + each.pName;
            const OddFolder there(Folder("behind"), Folder("there"), each.pQuirk);
            if (!there.IsMounted()) {
                GTEST_SKIP() << "no file system can be mounted in user space here";
            }
            const std::string sBehind = tree.File(each.bFromThere ? "behind/a" : "here/a", "content");
            const std::string sFrom = each.bFromThere ? tree.sRoot + "/there/a" : sBehind;
            const std::string sTo = each.bFromThere ? Folder("here") : Folder("there");
            Reasons reasons = Run(wFunc, {sFrom}, sTo);
            EXPECT_EQ(reasons.empty(), each.bDone) << sWhat << ": " << reasons["a"];
            EXPECT_EQ(user.outcome.nFilesDone, each.bDone ? 1U : 0U) << sWhat;
            EXPECT_EQ(Content(sBehind), each.bDone && wFunc == FO_MOVE ? "" : "content") << sWhat;
            const std::string sTarget = each.bFromThere ? "/here" : "/behind";
            EXPECT_EQ(Contents(tree.sRoot + sTarget), each.bDone ? Reasons({{"a", "content"}}) : Reasons())
                << sWhat;
            Shell("rm -rf " + tree.sRoot + "/here " + tree.sRoot + "/behind");
        }
    }
}

TEST_F(Fuse, NothingIsReplacedWhereRenamesReplace)
{
    const OddFolder there(Folder("behind"), Folder("there"), "renames-plainly");
    if (!there.IsMounted()) {
        GTEST_SKIP() << "no file system can be mounted in user space here";
    }
    tree.File("behind/a", "old");
    user.answer = {Choice::Replace, true};
    EXPECT_EQ(Run(FO_MOVE, {tree.File("a", "new")}, tree.sRoot + "/there").size(), 1U); // it has no trash
    EXPECT_EQ(Content(tree.sRoot + "/behind/a") + Content(tree.sRoot + "/a"), "oldnew");
    EXPECT_EQ(Contents(tree.sRoot + "/behind").size(), 1U);
}

TEST_F(Fuse, CancelDoesNotWaitForWhatHangs)
{
    Folder("here");
    const auto pThere = std::make_unique<OddFolder>(Folder("behind"), Folder("there"), "hangs-at-read");
    if (!pThere->IsMounted()) {
        GTEST_SKIP() << "no file system can be mounted in user space here";
    }
    tree.File("behind/a", "content");
    const auto start = std::chrono::steady_clock::now();
    const auto passed = [&] { return std::chrono::steady_clock::now() - start; };
    using std::chrono_literals::operator""ms;
    user.onProgress = [&](const auto&) { return passed() < 200ms; };
    desktop::ShellFileOperations operations(user);
    const auto request = support::Request(FO_MOVE, {tree.sRoot + "/there/a"}, tree.sRoot + "/here");
    EXPECT_NE(operations.SHFileOperationA(request), 0); // nobody is to look at the files again
    const Reasons reasons = support::Reasons(user.outcome);
    EXPECT_LT(passed(), 1000ms); // a loaded machine; a hang would last for ever
    EXPECT_TRUE(user.outcome.bCancelled && user.outcome.nFilesDone == 0 && reasons.contains("a"));
    EXPECT_EQ(Content(tree.sRoot + "/behind/a"), "content");
    EXPECT_EQ(Contents(tree.sRoot + "/here"), Reasons());
}

} // namespace
