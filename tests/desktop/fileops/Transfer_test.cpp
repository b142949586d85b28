// SPDX-License-Identifier: MIT
#include "OperationThread.h"
#include "Operations.h"

#include <array>
#include <memory>
#include <new>
#include <sys/xattr.h>
#include <tuple>

namespace {

using namespace fileops_test;

using Transfer = Operations;

/// Everything of a file but its name, its folder and when it was last looked at.
std::string Everything(const std::string& sPath)
{
    const auto status = StatusOf(sPath);
    std::ostringstream all;
    all << status.st_mode << ' ' << status.st_uid << ' ' << status.st_gid << ' ' << status.st_mtim.tv_sec
        << '.' << status.st_mtim.tv_nsec << (status.st_size > status.st_blocks * 5120 ? " sparse " : " ");
    for (const char* pName : {"user.note", "system.posix_acl_access"}) {
        std::array<char, 256> aValue{};
        const ssize_t nSize = getxattr(sPath.c_str(), pName, aValue.data(), aValue.size());
        all << std::string(aValue.data(), nSize > 0 ? static_cast<std::size_t>(nSize) : 0) << ' ';
    }
    return all.str() + Content(sPath);
}

/// An access control list that lets user 12345 read, entry by entry.
const std::string kList("\2\0\0\0"
                        "\1\0\6\0\377\377\377\377"
                        "\2\0\4\0"
                        "90\0\0"
                        "\4\0\0\0\377\377\377\377"
                        "\20\0\4\0\377\377\377\377"
                        "\40\0\0\0\377\377\377\377",
                        44);

TEST_F(Transfer, KeepsAllThatAFileIs)
{
    const std::map<std::string, std::size_t> lengths{
        {"plain", 5},  {"\xFF odd\n", 5}, {std::string(255, 'n'), 5}, {"big", 9'000'000}, {"empty", 0},
        {"listed", 5}, {"sparse", 5}};
    for (const unsigned wFunc : {FO_COPY, FO_MOVE}) {
        for (std::string sTo : {Folder("to"), other.sRoot}) {
            sTo += '/' + std::to_string(wFunc);
            fs::create_directory(sTo);
            std::vector<std::string> paths;
            Reasons before;
            for (const auto& [sName, nLength] : lengths) {
                paths.push_back(tree.File("from/" + sName, std::string(nLength, 'x')));
                const char* pPath = paths.back().c_str();
                if (sName == "sparse") {
                    std::fstream(pPath).seekp(20'000'000) << "middle";
                    fs::resize_file(pPath, 40'000'000);
                }
                const timespec times[2] = {{5, 0}, {1'234'567'890, 123'456'789}};
                setxattr(pPath, "user.note", "kept", 4, 0);
                fs::permissions(pPath, fs::perms(0640));
                if (sName == "listed") {
                    EXPECT_EQ(setxattr(pPath, "system.posix_acl_access", kList.data(), kList.size(), 0), 0);
                }
                EXPECT_EQ(geteuid() == 0 ? chown(pPath, 12, 34) : 0, 0);
                EXPECT_EQ(utimensat(AT_FDCWD, pPath, times, 0), 0);
                before[sName] = Everything(pPath);
            }
            // What a folder bequeaths lets nobody in.
            EXPECT_EQ(setxattr(sTo.c_str(), "system.posix_acl_default", kList.data(), kList.size(), 0), 0);
            EXPECT_EQ(Run(wFunc, paths, sTo), Reasons());
            for (const auto& [sName, sBefore] : before) {
                EXPECT_TRUE(Everything(sTo + '/' + sName) == sBefore) << sName;
                EXPECT_EQ(fs::exists(tree.sRoot + "/from/" + sName), wFunc == FO_COPY) << sName;
            }
            EXPECT_EQ(Contents(sTo).size(), paths.size());
        }
    }
    EXPECT_EQ(user.shown.size(), 8U); // nothing asked
}

TEST_F(Transfer, ReplacesOnlyWhatItMayAndThatGoesToTheTrash)
{
    const std::tuple<desktop::tReplaceAnswer, std::size_t, std::size_t> cases[] = {
        {{Choice::Skip, false}, 3, 1},
        {{Choice::Skip, true}, 1, 1},
        {{Choice::Replace, false}, 3, 4},
        {{Choice::Replace, true}, 1, 4},
        {{Choice::Cancel, false}, 1, 0}};
    for (const auto& [answer, nQuestions, nDone] : cases) {
        fs::remove_all(HomeTrash());
        fs::remove_all(tree.sRoot + "/to");
        std::vector<std::string> paths;
        for (const char* pName : {"from/a", "from/b", "from/c", "c"}) { // two with one name
            paths.push_back(tree.File(pName, "new"));
        }
        const std::string sA = tree.File("to/a", "old a");
        const std::string sB = tree.File("to/b", "old b");
        user.questions.clear();
        user.answer = answer;
        EXPECT_EQ(Run(FO_MOVE, paths, tree.sRoot + "/to"), Reasons());
        EXPECT_EQ(user.questions.size(), nQuestions);
        EXPECT_EQ(user.outcome.nFilesDone, nDone);
        EXPECT_EQ(user.outcome.bCancelled, answer.choice == Choice::Cancel);
        EXPECT_EQ(Content(sA), nDone == 4 ? "new" : "old a");
        EXPECT_EQ(Restorable(),
                  nDone == 4 ? (Bin{{sA, "old a"}, {sB, "old b"}, {tree.sRoot + "/to/c", "new"}}) : Bin());
        const auto& [source, target] = user.questions.at(0);
        EXPECT_EQ(source.sPath + target.sPath, paths[0] + sA);
        EXPECT_EQ(source.cySize * 10 + target.cySize, 35);
        EXPECT_GT(target.dtDate, 44'000);
    }
}

TEST_F(Transfer, NamesWhatStandsInTheWay)
{
    const std::string sFine = tree.File("fine");
    const std::string sTo = Folder("to");
    Folder("to/folder");
    fs::create_symlink("../fine", sTo + "/link");
    user.answer = {Choice::Replace, true};
    EXPECT_EQ(Run(FO_MOVE, {tree.File("folder"), tree.File("link"), sFine, tree.sRoot + "/gone"}, sTo),
              (Reasons{{"folder", "There is a folder of its name at the destination."},
                       {"link", "There is something of its name at the destination that is no file."},
                       {"gone", "It is no longer there."}}));
    EXPECT_TRUE(fs::exists(sTo + "/fine") && fs::is_symlink(sTo + "/link"));

    fs::create_directories(HomeTrash() + "/files");
    const std::string sIn = tree.File("locked/in");
    fs::permissions(tree.sRoot + "/locked", fs::perms(0555));
    fs::permissions(tree.File("fine", "x"), fs::perms(0000));
    Folder("sub");
    fs::create_directory_symlink(".", tree.sRoot + "/route");
    fs::create_hard_link(sFine, Folder("twice") + "/fine");
    const Unprivileged anybody;
    const std::string sTwice = "It is in that folder already, as one file with two names.";
    const auto why = [&](unsigned wFunc, const std::string& sFolder) {
        return Run(wFunc, {sFine}, tree.sRoot + sFolder)["fine"];
    };
    EXPECT_EQ(why(FO_MOVE, "/nowhere"), "The destination folder is no longer there.");
    EXPECT_EQ(why(FO_MOVE, "/link"), "The destination is not a folder.");
    EXPECT_EQ(why(FO_MOVE, "/locked"), "You are not permitted to change the destination folder.");
    EXPECT_EQ(why(FO_MOVE, "/../share/Trash/files"), "The destination is inside the trash.");
    EXPECT_EQ(why(FO_COPY, ""), "It is in that folder already.");
    EXPECT_EQ(why(FO_MOVE, "/route"), "One of the folders on the way to the destination has become a link.");
    EXPECT_EQ(why(FO_COPY, "/twice"), sTwice);
    EXPECT_EQ(why(FO_MOVE, "/twice"), sTwice);
    EXPECT_EQ(why(FO_COPY, "/sub"), "You are not permitted to read it.");
    EXPECT_EQ(Run(FO_DELETE, {sIn}),
              (Reasons{{"in", "You are not permitted to remove it from its folder."}}));
    EXPECT_TRUE(fs::exists(sIn) && Contents(tree.sRoot + "/sub").empty());
    EXPECT_EQ(StatusOf(sFine).st_nlink, 2U);
    EXPECT_EQ(user.questions.size(), 0U);
}

TEST_F(Transfer, KeepsToWhatTheUserMay)
{
    if (geteuid() != 0) {
        GTEST_SKIP() << "needs root to make files of somebody else";
    }
    const std::string sTheirs = tree.File("all/theirs", "x");
    const std::string sOwn = tree.File("own", "x");
    const std::string sSlot = other.sRoot + "/slot";
    fs::create_directory(sSlot);
    ASSERT_TRUE(
        Shell("cd " + tree.sRoot + " && chmod 1777 all && chmod 6755 all/theirs && chown 65534:65534 own"));
    ASSERT_TRUE(Shell("chmod 777 " + other.sRoot + " && chmod 333 " + sSlot));
    {
        const Unprivileged anybody;
        EXPECT_EQ(Run(FO_MOVE, {sTheirs}, other.sRoot),
                  (Reasons{{"theirs", "You are not permitted to remove it from its folder."}}));
        // A folder that takes files and shows none is as good as any.
        EXPECT_EQ(Run(FO_MOVE, {sOwn}, sSlot), Reasons());
        EXPECT_EQ(Run(FO_COPY, {sTheirs}, sSlot), Reasons());
    }
    EXPECT_EQ(Contents(sSlot), (Reasons{{"own", "x"}, {"theirs", "x"}}));
    EXPECT_EQ(StatusOf(sSlot + "/theirs").st_mode & 07777, 0755U); // no rights that are not the user's
    EXPECT_TRUE(!fs::exists(sOwn) && Contents(other.sRoot).empty());

    // A copy lets nobody in who could not use the original.
    const std::tuple<const char*, mode_t, mode_t, bool> cases[] = {
        {"same", 0644, 0644, false}, {"group", 0664, 0644, true}, {"others", 0606, 0600, true}};
    for (const auto& [pName, mode, copy, bTold] : cases) {
        const std::string sPath = tree.File(pName, "x");
        ASSERT_TRUE(chown(sPath.c_str(), 65534, 12345) == 0 && chmod(sPath.c_str(), mode) == 0);
        const Unprivileged anybody; // who is none of the group
        EXPECT_EQ(Run(FO_COPY, {sPath}, other.sRoot), Reasons());
        EXPECT_EQ(StatusOf(other.sRoot + '/' + pName).st_mode & 07777, copy) << pName;
        EXPECT_EQ(user.outcome.remarks.size(), bTold ? 1U : 0U) << pName;
    }
}

TEST_F(Transfer, GivesUpWhenTheDiskFailsBehindIt)
{
    const std::string sPath = tree.File("large", std::string(48 << 20, 'x'));
    for (const int nError : {EIO, EINTR}) {
        bool bFailed = false;
        const auto judge = [&](const support::tCall& call, std::size_t) {
            const bool bWaits =
                call.sCall == "sync_file_range" && (call.arguments[3] & SYNC_FILE_RANGE_WAIT_AFTER) != 0;
            return bWaits && !std::exchange(bFailed, true) ? nError : 0;
        };
        const auto move = [&] { return std::to_string(Run(FO_MOVE, {sPath}, other.sRoot).size()); };
        const bool bMoved = nError == EINTR;
        EXPECT_EQ(support::Supervise({other.sRoot}, move, judge).sSaid, bMoved ? "0" : "1");
        EXPECT_EQ(fs::exists(sPath), !bMoved);
        EXPECT_EQ(Contents(other.sRoot).size(), bMoved ? 1U : 0U);
    }
}

TEST_F(Transfer, StopsWithinAFileAndBetweenFiles)
{
    const std::vector<std::string> paths{tree.File("a"), tree.File("b", std::string(20'000'000, 'b')),
                                         tree.File("c")};
    for (const unsigned wFunc : {FO_MOVE, FO_DELETE}) {
        user.onProgress = [&](const auto& progress) {
            return wFunc == FO_MOVE ? progress.cyDone < 10'000'000 : progress.nFilesDone < 1;
        };
        tree.File("a");
        EXPECT_EQ(Run(wFunc, paths, wFunc == FO_MOVE ? other.sRoot : ""), Reasons());
        EXPECT_TRUE(user.outcome.bCancelled);
        EXPECT_EQ(user.outcome.nFilesDone, 1U);
        EXPECT_EQ(Contents(other.sRoot), (Reasons{{"a", ""}}));
        EXPECT_TRUE(!fs::exists(paths[0]) && fs::file_size(paths[1]) == 20'000'000 && fs::exists(paths[2]));
    }
}

TEST_F(Transfer, WithoutMemoryTheWorkEndsAndTheProgramDoesNot)
{
    const auto pThread = std::make_shared<desktop::OperationThread>(true);
    const auto shows = [](const auto&) { return true; };
    EXPECT_THROW(
        desktop::OperationThread::Run(pThread, [] { throw std::bad_alloc(); }, shows, user), std::bad_alloc);
    EXPECT_EQ(desktop::ThreadsLeftBehind(), 0);
}

TEST_F(Transfer, AFileWrittenToWhileItIsCopiedIsNoCopy)
{
    const std::string sSource = tree.File("a", std::string(5 << 20, 'a')); // more than is copied in one piece
    const std::string sTo = Folder("to");
    usleep(5000); // until the clock that the system stamps files with has moved on
    const auto work = [&] {
        Run(FO_COPY, {sSource}, sTo);
        return support::Reasons(user.outcome)["a"];
    };
    std::size_t nPieces = 0;
    const auto run = support::Supervise({tree.sRoot}, work, [&](const support::tCall& call, std::size_t) {
        if (call.sCall == "copy_file_range" && ++nPieces == 2) {
            std::fstream(sSource) << 'b';
        }
        return 0;
    });
    EXPECT_EQ(run.sSaid, "It has changed in the meantime.");
    EXPECT_EQ(Contents(sTo), Reasons());
}

} // namespace
