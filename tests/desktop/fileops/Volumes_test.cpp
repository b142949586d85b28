// SPDX-License-Identifier: MIT
// Full volumes, routes to the same folder, and file systems in user space that lie, fail late or hang.

#include "Operations.h"

#include <algorithm>
#include <chrono>
#include <csignal>
#include <sched.h>
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
        // Users other than root need the system's own program.
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
                                                         {"renames-plainly", false, true},
                                                         {"numbers-each-name", true, true},
                                                         {"numbers-each-name", false, true},
                                                         {"resolves-links", true, true},
                                                         {"resolves-links", false, true}};
    for (const auto& [pQuirk, bFromThere, bDone] : cases) {
        for (const auto& [wFunc, nLength] : {std::pair{FO_COPY, 1}, {FO_MOVE, 1}, {FO_MOVE, 240}}) {
            SCOPED_TRACE(std::string(wFunc == FO_COPY ? "copy " : "move ") + (bFromThere ? "from " : "to ") +
                         pQuirk + ", name of " + std::to_string(nLength));
            const OddFolder there(sBehind, sThere, pQuirk);
            const std::string sName(static_cast<std::size_t>(nLength), 'a');
            const std::string sSource = tree.File((bFromThere ? "behind/" : "here/") + sName, "content");
            Reasons reasons =
                Run(wFunc, {(bFromThere ? sThere : sHere) + '/' + sName}, bFromThere ? sHere : sThere);
            EXPECT_EQ(reasons.empty(), bDone) << reasons[sName];
            EXPECT_EQ(user.outcome.nFilesDone, bDone ? 1U : 0U);
            EXPECT_EQ(Content(sSource), bDone && wFunc == FO_MOVE ? "" : "content");
            const Reasons expected = bDone ? Reasons({{sName, "content"}}) : Reasons();
            // The file system hears of the last close a little later.
            for (int n = 0; n < 200 && Contents(bFromThere ? sHere : sBehind) != expected; ++n) {
                usleep(10'000);
            }
            EXPECT_EQ(Contents(bFromThere ? sHere : sBehind), expected);
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

TEST_F(Fuse, AnotherRouteToAFileIsNoCopyOfIt)
{
    const std::string sVolume = other.sRoot; // below /dev, where the home may be, a volume has no trash
    ASSERT_EQ(symlink("a", (sBehind + "/b").c_str()), 0);
    // What is noticed before it goes, and once it has gone.
    const std::tuple<const char*, std::string, std::string, std::string, std::size_t, std::size_t> cases[] = {
        {"none", sThere, sBehind + "/a", sThere + "/a", 1, 0},
        {"keeps-no-change-times", sThere, sBehind + "/a", sThere + "/a", 0, 1},
        {"follows-links", sVolume, sVolume + "/a", sVolume + "/b", 0, 1},
        {"numbers-all-alike", sVolume, sVolume + "/a", sVolume + "/c", 1, 0},
        {"resolves-links", sVolume, sVolume + "/a", sVolume + "/b", 1, 1}}; // with a second name, below
    for (const auto& [pQuirk, sMounted, sGoes, sStays, nBefore, nAfter] : cases) {
        SCOPED_TRACE(pQuirk);
        const OddFolder there(sBehind, sMounted, pQuirk);
        tree.File("behind/a", "content");
        tree.File("behind/c", "CONTENT");
        if (nBefore + nAfter == 2) {
            fs::create_hard_link(sBehind + "/a", sBehind + "/d");
        }
        OneGroup rows({sStays});
        user.consent = desktop::Consent::WithCopy;
        user.confirmation = {};
        user.outcome = {};
        desktop::ShellFileOperations operations(user, true);
        operations.UseGroups(rows);
        EXPECT_EQ(operations.SHFileOperationA(support::Request(FO_DELETE, {sGoes})), 0);
        EXPECT_EQ(Content(sGoes), "content");
        EXPECT_EQ(user.confirmation.concerns.size(), nBefore);
        EXPECT_EQ(support::Reasons(user.outcome).size(), nAfter);
    }
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

/// Mounts that nobody else sees and that end with the program at the latest.
class Mounts : public Operations
{
protected:
    void SetUp() override
    {
        if (unshare(CLONE_NEWNS) != 0 || mount(nullptr, "/", nullptr, MS_REC | MS_PRIVATE, nullptr) != 0) {
            GTEST_SKIP() << "mounting is not permitted";
        }
    }

    void TearDown() override
    {
        while (umount2(sVolume.c_str(), MNT_DETACH) == 0) {
        }
    }

    /// The concern that is shown when these files are to go and copies are to stay here.
    desktop::Concern ConcernOfDeleting(const std::vector<std::string>& paths, std::vector<std::string> stays)
    {
        OneGroup rows(std::move(stays));
        user.consent = desktop::Consent::WithCopy;
        desktop::ShellFileOperations operations(user, true);
        operations.UseGroups(rows);
        EXPECT_EQ(operations.SHFileOperationA(support::Request(FO_DELETE, paths)), 0);
        const auto& concerns = user.confirmation.concerns;
        EXPECT_EQ(concerns.size(), 1U);
        return concerns.empty() ? desktop::Concern::NotCompared : concerns.front().concern;
    }

    const std::string& sVolume = other.sRoot; // a mount below /dev, where the home may be, never has a trash
};

TEST_F(Mounts, ASecondRouteToAFolderIsThatFolder)
{
    const std::string sPath = tree.File("real/a", "x");
    const std::string sMounted = sVolume + "/a";
    ASSERT_EQ(mount((tree.sRoot + "/real").c_str(), sVolume.c_str(), nullptr, MS_BIND, nullptr), 0);
    EXPECT_EQ(Run(FO_MOVE, {sPath}, sVolume), (Reasons{{"a", "It is in that folder already."}}));
    EXPECT_EQ(Run(FO_MOVE, {sMounted}, Folder("to")), Reasons());
    EXPECT_TRUE(Content(tree.sRoot + "/to/a") == "x" && !fs::exists(sPath));
    tree.File("real/a", "y");
    EXPECT_EQ(Run(FO_DELETE, {sMounted}), (Reasons{{"a", "The volume that it is on has no trash."}}));

    // Nothing is taken from a route that is read-only, nor brought there.
    ASSERT_EQ(mount(nullptr, sVolume.c_str(), nullptr, MS_BIND | MS_REMOUNT | MS_RDONLY, nullptr), 0);
    const Reasons there{{"a", "The disk that it is on is read-only."}};
    EXPECT_EQ(Run(FO_DELETE, {sMounted}), there);
    EXPECT_EQ(Run(FO_MOVE, {sMounted}, Folder("new")), there);
    EXPECT_EQ(Run(FO_COPY, {tree.File("b")}, sVolume), (Reasons{{"b", "The destination is read-only."}}));
    EXPECT_EQ(Run(FO_COPY, {sMounted}, Folder("new")), Reasons());
    EXPECT_EQ(Content(sPath) + Content(tree.sRoot + "/new/a"), "yy");
}

TEST_F(Mounts, WhatHasNoTrashIsKnownToStayAndASecondRouteIsNot)
{
    ASSERT_EQ(mount("none", sVolume.c_str(), "tmpfs", 0, nullptr), 0);
    const std::string sThere = other.File("a", "x");
    const std::string sHere = tree.File("real/b", "x");
    EXPECT_EQ(ConcernOfDeleting({sHere, sThere}, {}), desktop::Concern::NoTrash);
    EXPECT_EQ(Content(sHere) + Content(sThere), "x");

    tree.File("real/b", "x");
    ASSERT_EQ(mount((tree.sRoot + "/real").c_str(), sVolume.c_str(), nullptr, MS_BIND, nullptr), 0);
    EXPECT_EQ(ConcernOfDeleting({sHere}, {sVolume + "/b"}), desktop::Concern::NoOtherCopy);
    const std::string sOn = tree.File("on", "");
    ASSERT_EQ(mount(sHere.c_str(), sOn.c_str(), nullptr, MS_BIND, nullptr), 0);
    EXPECT_EQ(ConcernOfDeleting({sHere}, {sOn}), desktop::Concern::NoOtherCopy);
    ASSERT_EQ(link(sHere.c_str(), (sHere + "2").c_str()),
              0); // a mounted file is no name, however many there are
    EXPECT_EQ(ConcernOfDeleting({sHere}, {sOn}), desktop::Concern::NoOtherCopy);
    EXPECT_EQ(umount2(sOn.c_str(), MNT_DETACH), 0);
    EXPECT_EQ(Content(sHere), "x");

    EXPECT_EQ(Run(FO_DELETE, {tree.File("trashed", "x")}), Reasons());
    ASSERT_EQ(mount((HomeTrash() + "/files").c_str(), sVolume.c_str(), nullptr, MS_BIND, nullptr), 0);
    EXPECT_EQ(ConcernOfDeleting({sHere}, {sVolume + "/trashed"}), desktop::Concern::NoOtherCopy);
}

TEST_F(Mounts, OneImageOnTwoLoopDevicesIsOneCopy)
{
    const TempTree second;
    if (!Shell("cd " + tree.sRoot + " && truncate -s 4M image && mkfs.ext4 -q image && mount -o loop image " +
               sVolume + " && echo x >" + sVolume + "/a && sync && mount -o ro,noload " +
               "$(losetup -r -f --show image) " + second.sRoot)) {
        GTEST_SKIP() << "no image can be shown twice here";
    }
    EXPECT_EQ(ConcernOfDeleting({sVolume + "/a"}, {second.sRoot + "/a"}), desktop::Concern::NoOtherCopy);
    EXPECT_TRUE(fs::exists(sVolume + "/a"));
    EXPECT_TRUE(Shell("device=$(findmnt -no SOURCE " + second.sRoot + ") && umount " + second.sRoot +
                      " && losetup -d $device"));
}

TEST_F(Mounts, AVolumeHasATrashOfItsOwnUntilItIsFull)
{
    const std::string sImage = tree.sRoot + "/image";
    if (!Shell("truncate -s 4M " + sImage + " && mkfs.ext4 -q -m 0 " + sImage + " && mount -o loop " +
               sImage + ' ' + sVolume)) {
        GTEST_SKIP() << "no ext4 volume can be made here";
    }
    const std::string sTrash = sVolume + "/.Trash-" + std::to_string(geteuid());
    std::ofstream(sVolume + "/a") << "a";
    EXPECT_EQ(Run(FO_DELETE, {sVolume + "/a"}), Reasons());
    EXPECT_EQ(Restorable(sTrash), (Bin{{sVolume + "/a", "a"}}));
    EXPECT_EQ(Run(FO_COPY, {tree.File("b")}, sTrash + "/files"),
              (Reasons{{"b", "The destination is inside the trash."}}));

    // A folder of it that is mounted elsewhere has none.
    const TempTree elsewhere;
    ASSERT_TRUE(Shell("mkdir " + sVolume + "/part && touch " + sVolume + "/part/p && mount --bind " +
                      sVolume + "/part " + elsewhere.sRoot));
    EXPECT_EQ(Run(FO_DELETE, {elsewhere.sRoot + "/p"}),
              (Reasons{{"p", "The volume that it is on has no trash."}}));
    ASSERT_EQ(umount2(elsewhere.sRoot.c_str(), MNT_DETACH), 0);

    // Locked for root, too.
    std::ofstream(sVolume + "/b") << "b";
    ASSERT_TRUE(Shell("cd " + sVolume + " && mkdir fixed && chattr +i b fixed"));
    const std::string sFixed = "You are not permitted to change the destination folder.";
    EXPECT_EQ(Run(FO_MOVE, {sVolume + "/b"}, Folder("to")),
              (Reasons{{"b", "You are not permitted to remove it from its folder."}}));
    EXPECT_EQ(Run(FO_COPY, {tree.sRoot + "/b"}, sVolume + "/fixed"), (Reasons{{"b", sFixed}}));
    Shell("chattr -i " + sVolume + "/b");
    EXPECT_EQ(Run(FO_MOVE, {sVolume + "/b"}, sVolume + "/fixed"), (Reasons{{"b", sFixed}}));

    std::vector<std::string> paths;
    for (int n = 0; n < 20; ++n) {
        paths.push_back(sVolume + '/' + std::to_string(n));
        std::ofstream(paths.back()) << n;
    }
    Shell("dd if=/dev/zero bs=4k of=" + sVolume + "/filler");
    EXPECT_EQ(Run(FO_COPY, {tree.File("c", std::string(100'000, 'c'))}, sVolume),
              (Reasons{{"c", "There is no space left on the destination."}}));
    EXPECT_EQ(std::count(user.shown.begin(), user.shown.end(), "AskRoom"), 1);
    const auto reasons = Run(FO_DELETE, paths);
    const Bin bin = Restorable(sTrash);
    EXPECT_GT(reasons.size(), 0U);
    for (const std::string& sPath : paths) {
        const std::string sName = fs::path(sPath).filename();
        EXPECT_EQ(Content(sPath) == sName, reasons.contains(sName)) << sName;
        EXPECT_NE(bin.contains({sPath, sName}), reasons.contains(sName)) << sName;
    }
}

} // namespace
