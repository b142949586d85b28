#include "Operations.h"

#include "FileFaults.h"

#include <array>
#include <sys/xattr.h>

namespace {

using namespace fileops_test;
namespace faults = support::faults;
using platform::FO_COPY;
using platform::FO_MOVE;

/// Into a folder on the files' own volume and into one on another.
class Transfer : public Operations
{
protected:
    [[nodiscard]] std::vector<std::string> Targets()
    {
        ++m_nTargets;
        fs::create_directories(other.sRoot + '/' + std::to_string(m_nTargets));
        return {Folder("to" + std::to_string(m_nTargets)), other.sRoot + '/' + std::to_string(m_nTargets)};
    }

    TempTree other;

private:
    int m_nTargets = 0;
};

/// Everything of a file but its name, its folder and when it was last looked at.
std::string Everything(const std::string& sPath)
{
    const auto status = StatusOf(sPath);
    std::array<char, 256> aValue{};
    const auto attribute = [&](const char* pName) {
        const ssize_t nSize = getxattr(sPath.c_str(), pName, aValue.data(), aValue.size());
        return std::string(aValue.data(), nSize > 0 ? static_cast<std::size_t>(nSize) : 0);
    };
    return std::to_string(status.st_mode) + ' ' + std::to_string(status.st_uid) + ' ' +
           std::to_string(status.st_gid) + ' ' + std::to_string(status.st_mtim.tv_sec) + '.' +
           std::to_string(status.st_mtim.tv_nsec) + ' ' + attribute("user.note") + ' ' +
           attribute("system.posix_acl_access") + ' ' + Content(sPath);
}

/// An access control list that lets user 12345 read.
void LetIn(const std::string& sPath, const char* pAttribute)
{
    const unsigned char list[] = {2, 0,  0,   0,   1,   0,   6,  0, 255, 255, 255, 255, 2,   0,  4,
                                  0, 57, 48,  0,   0,   4,   0,  0, 0,   255, 255, 255, 255, 16, 0,
                                  4, 0,  255, 255, 255, 255, 32, 0, 0,   0,   255, 255, 255, 255};
    EXPECT_EQ(setxattr(sPath.c_str(), pAttribute, list, sizeof list, 0), 0);
}

TEST_F(Transfer, KeepsAllThatAFileIs)
{
    const std::string sBig(9'000'000, 'b');
    for (const unsigned wFunc : {FO_COPY, FO_MOVE}) {
        for (const std::string& sTo : Targets()) {
            const std::vector<std::string> names{"plain", "\xFF odd\n", std::string(255, 'n'),
                                                 "big",   "empty",      "listed"};
            std::vector<std::string> paths;
            std::vector<std::string> before;
            for (const auto& sName : names) {
                paths.push_back(tree.File("from/" + sName, sName == "big"     ? sBig
                                                           : sName == "empty" ? ""
                                                                              : sName));
                const timespec times[2] = {{5, 0}, {1'234'567'890, 123'456'789}};
                setxattr(paths.back().c_str(), "user.note", "kept", 4, 0);
                fs::permissions(paths.back(), fs::perms(0640));
                if (sName == "listed") {
                    LetIn(paths.back(), "system.posix_acl_access");
                }
                EXPECT_EQ(geteuid() == 0 ? chown(paths.back().c_str(), 12, 34) : 0, 0);
                EXPECT_EQ(utimensat(AT_FDCWD, paths.back().c_str(), times, 0), 0);
                before.push_back(Everything(paths.back()));
            }
            LetIn(sTo, "system.posix_acl_default"); // what a folder bequeaths lets nobody in
            EXPECT_EQ(Run(wFunc, paths, sTo), Reasons());
            EXPECT_EQ(user.outcome.nFilesDone, names.size());
            for (std::size_t n = 0; n < names.size(); ++n) {
                EXPECT_EQ(Everything(sTo + '/' + names[n]), before[n]) << names[n];
                EXPECT_EQ(fs::exists(paths[n]), wFunc == FO_COPY) << names[n];
            }
            EXPECT_EQ(support::Contents(sTo).size(), names.size());
        }
    }
    EXPECT_EQ(user.shown.size(), 8U); // nothing asked
    EXPECT_EQ(support::Restorable(support::HomeTrash()), Bin());
}

TEST_F(Transfer, KeepsHoles)
{
    for (const std::string& sTo : Targets()) {
        const std::string sPath = tree.File("sparse", "start");
        std::fstream(sPath).seekp(20'000'000) << "middle";
        fs::resize_file(sPath, 40'000'000);
        Run(FO_COPY, {sPath}, sTo);
        EXPECT_TRUE(Content(sTo + "/sparse") == Content(sPath));
        EXPECT_LT(StatusOf(sTo + "/sparse").st_blocks, 2000);
    }
}

TEST_F(Transfer, TakesNoRightsAlongThatAreNotTheUsers)
{
    if (geteuid() != 0) {
        GTEST_SKIP() << "needs root to make files of somebody else";
    }
    const std::string sPath = tree.File("tool", "x");
    fs::permissions(sPath, fs::perms(06755));
    const std::string sTo = Folder("to");
    fs::permissions(sTo, fs::perms::all);
    const Unprivileged anybody;
    EXPECT_EQ(Run(FO_COPY, {sPath}, sTo), Reasons());
    EXPECT_EQ(StatusOf(sTo + "/tool").st_mode & 07777, 0755U);
}

TEST_F(Transfer, ReplacesOnlyWhatItMayAndThatGoesToTheTrash)
{
    struct tCase {
        desktop::tReplaceAnswer answer;
        std::size_t nQuestions;
        std::size_t nDone;
        bool bCancelled;
    };
    const tCase cases[] = {{{Choice::Skip, false}, 2, 1, false},
                           {{Choice::Skip, true}, 1, 1, false},
                           {{Choice::Replace, false}, 2, 3, false},
                           {{Choice::Replace, true}, 1, 3, false},
                           {{Choice::Cancel, false}, 1, 0, true}};
    for (const tCase& c : cases) {
        for (const unsigned wFunc : {FO_COPY, FO_MOVE}) {
            for (const std::string& sFrom : {Folder("from"), other.sRoot}) {
                fs::remove_all(support::HomeTrash());
                fs::remove_all(tree.sRoot + "/to");
                std::vector<std::string> paths;
                for (const char* pName : {"/a", "/b", "/c"}) {
                    paths.push_back(sFrom + pName);
                    std::ofstream(paths.back()) << "new";
                }
                const std::string sA = tree.File("to/a", "old a");
                tree.File("to/b", "old b");
                user.questions.clear();
                user.answer = c.answer;
                EXPECT_EQ(Run(wFunc, paths, Folder("to")), Reasons());
                EXPECT_EQ(user.questions.size(), c.nQuestions);
                EXPECT_EQ(user.outcome.nFilesDone, c.nDone);
                EXPECT_EQ(user.outcome.bCancelled, c.bCancelled);
                EXPECT_EQ(Content(sA), c.nDone == 3 ? "new" : "old a");
                EXPECT_EQ(support::Restorable(support::HomeTrash()),
                          c.nDone == 3 ? (Bin{{sA, "old a"}, {tree.sRoot + "/to/b", "old b"}}) : Bin());
                const auto& [source, target] = user.questions.at(0);
                EXPECT_EQ(source.sPath + target.sPath, paths[0] + sA);
                EXPECT_EQ(source.cySize * 10 + target.cySize, 35);
                EXPECT_GT(target.dtDate, 44'000);
            }
        }
    }
}

TEST_F(Transfer, AsksWhenTwoFilesWouldShareAName)
{
    user.answer = {Choice::Replace, false};
    const std::string sTo = Folder("to");
    const std::vector<std::string> paths{tree.File("1/same", "1"), tree.File("2/same", "2")};
    EXPECT_EQ(Run(FO_MOVE, paths, sTo), Reasons());
    EXPECT_EQ(user.questions.size(), 1U);
    EXPECT_EQ(Content(sTo + "/same"), "2");
    EXPECT_EQ(support::Restorable(support::HomeTrash()), (Bin{{sTo + "/same", "1"}}));
}

TEST_F(Transfer, ChangesNothingOntoItself)
{
    const std::string sPath = tree.File("a/file", "content");
    fs::create_directory_symlink("a", tree.sRoot + "/route");
    fs::create_hard_link(sPath, Folder("b") + "/file");
    const auto before = StatusOf(sPath);
    user.answer = {Choice::Replace, true};
    for (const unsigned wFunc : {FO_COPY, FO_MOVE}) {
        const std::string sThere = "It is in that folder already.";
        const Reasons twice{{"file", "It is in that folder already, as one file with two names."}};
        EXPECT_EQ(Run(wFunc, {sPath}, tree.sRoot + "/a"), (Reasons{{"file", sThere}}));
        EXPECT_EQ(Run(wFunc, {sPath}, tree.sRoot + "/route"), (Reasons{{"file", sThere}}));
        EXPECT_EQ(Run(wFunc, {sPath}, tree.sRoot + "/b"), twice);
    }
    EXPECT_EQ(StatusOf(sPath).st_ctim.tv_nsec, before.st_ctim.tv_nsec);
    EXPECT_EQ(StatusOf(sPath).st_nlink, 2U);
    EXPECT_EQ(user.questions.size(), 0U);
}

TEST_F(Transfer, NamesWhatStandsInTheWay)
{
    const std::vector<std::string> paths{tree.File("folder"), tree.File("link"), tree.File("fine"),
                                         tree.sRoot + "/gone"};
    const std::string sTo = Folder("to");
    Folder("to/folder");
    fs::create_symlink("../fine", sTo + "/link");
    user.answer = {Choice::Replace, true};
    EXPECT_EQ(Run(FO_MOVE, paths, sTo),
              (Reasons{{"folder", "There is a folder of its name at the destination."},
                       {"link", "There is something of its name at the destination that is no file."},
                       {"gone", "It is no longer there."}}));
    EXPECT_TRUE(fs::exists(sTo + "/fine") && fs::is_symlink(sTo + "/link"));

    const std::string sBin = support::HomeTrash() + "/files";
    fs::create_directories(sBin);
    const std::string sLocked = Folder("locked");
    fs::permissions(sLocked, fs::perms(0555));
    const std::string sUnread = tree.File("fine", "x");
    fs::permissions(sUnread, fs::perms(0000));
    const Unprivileged anybody;
    const std::pair<std::string, std::string> cases[] = {
        {tree.sRoot + "/nowhere", "The destination folder is no longer there."},
        {tree.sRoot + "/link", "The destination is not a folder."},
        {sLocked, "You are not permitted to change the destination folder."},
        {sBin, "The destination is inside the trash."}};
    for (const auto& [sFolder, sReason] : cases) {
        EXPECT_EQ(Run(FO_MOVE, {sUnread}, sFolder), (Reasons{{"fine", sReason}})) << sFolder;
    }
    EXPECT_EQ(Run(FO_COPY, {sUnread}, tree.sRoot), (Reasons{{"fine", "It is in that folder already."}}));
    EXPECT_EQ(Run(FO_COPY, {sUnread}, Folder("sub")),
              (Reasons{{"fine", "You are not permitted to read it."}}));
    EXPECT_EQ(support::Contents(tree.sRoot + "/sub"), Reasons());
}

TEST_F(Transfer, BeginsNoMoveToAnotherVolumeThatCannotEnd)
{
    if (geteuid() != 0) {
        GTEST_SKIP() << "needs root to make files of somebody else";
    }
    const std::string sTheirs = tree.File("all/theirs", "x");
    const std::string sOwn = tree.File("own", "x");
    const std::string sSlot = other.sRoot + "/slot";
    fs::create_directory(sSlot);
    EXPECT_EQ(chmod((tree.sRoot + "/all").c_str(), 01777) + chmod(other.sRoot.c_str(), 0777) +
                  chmod(sSlot.c_str(), 0333) + chown(sOwn.c_str(), 65534, 65534),
              0);
    const Reasons locked{{"theirs", "You are not permitted to remove it from its folder."}};
    {
        const Unprivileged anybody;
        EXPECT_EQ(Run(FO_MOVE, {sTheirs}, other.sRoot), locked);
        // A folder that takes files and shows none is as good as any.
        EXPECT_EQ(Run(FO_MOVE, {sOwn}, sSlot), Reasons());
    }
    EXPECT_EQ(support::Contents(sSlot), (Reasons{{"own", "x"}}));
    EXPECT_FALSE(fs::exists(sOwn));
    // Locked for root, too.
    if (Shell("chattr +i '" + sTheirs + "'")) {
        EXPECT_EQ(Run(FO_MOVE, {sTheirs}, other.sRoot), locked);
        Shell("chattr -i '" + sTheirs + "'; chattr +i '" + Folder("fixed") + "'");
        EXPECT_EQ(Run(FO_MOVE, {sTheirs}, Folder("fixed")),
                  (Reasons{{"theirs", "You are not permitted to change the destination folder."}}));
        Shell("chattr -i '" + Folder("fixed") + "'");
    }
    EXPECT_EQ(support::Contents(other.sRoot), Reasons());
}

/// What happens to the files while the content of one is being copied, or right before a call.
TEST_F(Transfer, TakesNotFromNorOverWhatChangesMeanwhile)
{
    const std::string sTo = other.sRoot;
    const std::string sPath = tree.File("file", std::string(9'000'000, 'x'));
    bool bOnce = true;
    user.answer = {Choice::Replace, true};

    // Another program takes the name.
    user.onProgress = [&](const auto& progress) {
        if (progress.cyDone > 0 && std::exchange(bOnce, false)) {
            std::ofstream(sTo + "/file") << "theirs";
        }
        return true;
    };
    EXPECT_EQ(Run(FO_MOVE, {sPath}, sTo),
              (Reasons{{"file", "In the meantime something else has got its name at the destination."}}));
    EXPECT_EQ(support::Contents(sTo), (Reasons{{"file", "theirs"}}));

    // The file to be replaced is written to.
    const std::string sOwn = tree.File("own/file", "old");
    bOnce = true;
    user.onProgress = [&](const auto& progress) {
        if (progress.cyDone > 0 && std::exchange(bOnce, false)) {
            std::ofstream(sOwn) << "newer";
        }
        return true;
    };
    EXPECT_EQ(
        Run(FO_COPY, {sPath}, tree.sRoot + "/own"),
        (Reasons{
            {"file",
             "The file that is there cannot be put into the trash first. It has changed in the meantime."}}));
    EXPECT_EQ(support::Contents(tree.sRoot + "/own"), (Reasons{{"file", "newer"}}));

    // The source is written to, before and after the copy has got its name.
    fs::remove(sTo + "/file");
    user.onProgress = [&](const auto& progress) {
        if (progress.cyDone > 0) {
            std::ofstream(sPath, std::ios::app) << "more";
        }
        return true;
    };
    EXPECT_EQ(Run(FO_MOVE, {sPath}, sTo), (Reasons{{"file", "It has changed in the meantime."}}));
    EXPECT_EQ(support::Contents(sTo), Reasons());
    user.onProgress = nullptr;
    bool bNamed = false;
    faults::Arm({{}, false, true, [&](const faults::tChange& change) {
                     if (change.sCall == "fsync" && std::exchange(bNamed, true)) {
                         std::ofstream(sPath, std::ios::app) << "more";
                     }
                 }});
    const auto reasons = Run(FO_MOVE, {sPath}, sTo);
    faults::Disarm();
    EXPECT_EQ(reasons, (Reasons{{"file", "It was copied but not removed. It has changed in the meantime."}}));
    EXPECT_TRUE(fs::exists(sPath) && fs::exists(sTo + "/file"));
}

TEST_F(Transfer, SyncsBeforeNamingAndBeforeRemoving)
{
    const std::string sPath = tree.File("file", "x");
    faults::Arm({});
    Run(FO_MOVE, {sPath}, other.sRoot);
    std::string sOrder;
    for (const auto& change : faults::Disarm()) {
        const bool bTemporary = change.sName.starts_with(".tallyfen-");
        if (change.sCall == "fsync" || change.sCall == "rename" || change.sCall == "unlink") {
            sOrder += change.sCall + (bTemporary               ? " copy, "
                                      : change.sName == "file" ? " file, "
                                                               : " folder, ");
        }
    }
    EXPECT_EQ(sOrder, "rename file, fsync copy, rename file, fsync folder, unlink file, ");
}

TEST_F(Transfer, LeavesNothingBehindWhenCancelled)
{
    const std::vector<std::string> paths{tree.File("a", std::string(20'000'000, 'a')), tree.File("b")};
    std::vector<std::int64_t> steps;
    user.onProgress = [&](const auto& progress) {
        steps.push_back(progress.cyDone);
        return progress.cyDone < 10'000'000;
    };
    EXPECT_EQ(Run(FO_MOVE, paths, other.sRoot), Reasons());
    EXPECT_TRUE(user.outcome.bCancelled);
    EXPECT_EQ(user.outcome.nFilesDone, 0U);
    EXPECT_TRUE(fs::is_empty(other.sRoot));
    EXPECT_EQ(fs::file_size(paths[0]), 20'000'000U);
    EXPECT_GE(steps.size(), 3U); // each few megabytes
}

} // namespace
