// SPDX-License-Identifier: MIT
// File systems in user space that lie, fail late, hang or know less than others.

#include "Operations.h"

#include <chrono>
#include <csignal>
#include <sys/mount.h>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <tuple>

namespace {

using namespace fileops_test;

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
        umount2(m_sThere.c_str(), MNT_DETACH);
    }
    [[nodiscard]] bool IsMounted() const { return StatusOf(m_sThere).st_dev != m_nBefore; }

private:
    std::string m_sThere;
    dev_t m_nBefore;
    pid_t m_process;
};

class Fuse : public Operations
{
protected:
    void SetUp() override
    {
        if (!OddFolder(sBehind, sThere, "none").IsMounted()) {
            GTEST_SKIP() << "no file system can be mounted in user space here";
        }
    }

    const std::string sHere = Folder("here"), sBehind = Folder("behind"), sThere = Folder("there");
};

TEST_F(Fuse, OnlyWhatArrivedWholeIsDone)
{
    const std::tuple<const char*, bool, bool> cases[] = {{"none", true, true},
                                                         {"none", false, true},
                                                         {"says-size-0", true, false},
                                                         {"says-size-0", false, false},
                                                         {"fails-at-close", false, false},
                                                         {"renames-plainly", true, true},
                                                         {"renames-plainly", false, true}};
    for (const auto& [pQuirk, bFromThere, bDone] : cases) {
        for (const unsigned wFunc : {FO_COPY, FO_MOVE}) {
            SCOPED_TRACE(std::string(wFunc == FO_COPY ? "copy " : "move ") + (bFromThere ? "from " : "to ") +
                         pQuirk);
            const OddFolder there(sBehind, sThere, pQuirk);
            const std::string sSource = tree.File(bFromThere ? "behind/a" : "here/a", "content");
            Reasons reasons = Run(wFunc, {bFromThere ? sThere + "/a" : sSource}, bFromThere ? sHere : sThere);
            EXPECT_EQ(reasons.empty(), bDone) << reasons["a"];
            EXPECT_EQ(user.outcome.nFilesDone, bDone ? 1U : 0U);
            EXPECT_EQ(Content(sSource), bDone && wFunc == FO_MOVE ? "" : "content");
            EXPECT_EQ(Contents(bFromThere ? sHere : sBehind),
                      bDone ? Reasons({{"a", "content"}}) : Reasons());
            Shell("rm " + sHere + "/* " + sBehind + "/*");
        }
    }
}

TEST_F(Fuse, NothingIsReplacedWhereRenamesReplace)
{
    const OddFolder there(sBehind, sThere, "renames-plainly");
    const std::string sOld = tree.File("behind/a", "old");
    const std::string sNew = tree.File("a", "new");
    user.answer = {Choice::Replace, true};
    EXPECT_EQ(Run(FO_MOVE, {sNew}, sThere).size(), 1U); // it has no trash
    EXPECT_EQ(Content(sOld) + Content(sNew), "oldnew");
    EXPECT_EQ(Contents(sBehind).size(), 1U);
}

TEST_F(Fuse, CancelDoesNotWaitForWhatHangs)
{
    const auto pThere = std::make_unique<OddFolder>(sBehind, sThere, "hangs-at-read");
    const std::string sSource = tree.File("behind/a", "content");
    const auto start = std::chrono::steady_clock::now();
    const auto passed = [&] { return std::chrono::steady_clock::now() - start; };
    using std::chrono_literals::operator""ms;
    user.onProgress = [&](const auto&) { return passed() < 200ms; };
    desktop::ShellFileOperations operations(user);
    const auto request = support::Request(FO_MOVE, {sThere + "/a"}, sHere);
    EXPECT_NE(operations.SHFileOperationA(request), 0); // nobody is to look at the files again
    EXPECT_LT(passed(), 1000ms);                        // a loaded machine; a hang would last for ever
    EXPECT_TRUE(user.outcome.bCancelled && user.outcome.nFilesDone == 0);
    EXPECT_TRUE(support::Reasons(user.outcome).contains("a"));
    EXPECT_EQ(Content(sSource), "content");
    EXPECT_EQ(Contents(sHere), Reasons());
}

} // namespace
