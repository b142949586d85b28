#include "Operations.h"

#include "FileFaults.h"

namespace {

using namespace fileops_test;
namespace faults = support::faults;
using platform::FO_DELETE;

class Trash : public Operations
{
};

TEST_F(Trash, KeepsFilesOfAnyNameWithTheWayBack)
{
    std::vector<std::string> paths;
    Bin expected;
    for (const std::string& sName :
         {std::string("-rf"), std::string("two\nlines"), std::string("\xFF\xFE%25"), std::string(238, 'n'),
          std::string(" "), std::string("...")}) {
        paths.push_back(tree.File(sName, sName + "!"));
        expected.emplace(paths.back(), sName + "!");
    }
    for (int n = 0; n < 20; ++n) {
        paths.push_back(tree.File(std::to_string(n) + "/same", std::to_string(n)));
        expected.emplace(paths.back(), std::to_string(n));
    }
    paths.push_back(tree.sRoot + "/folder/../-rf2");
    tree.File("-rf2", "2");
    fs::create_directory(tree.sRoot + "/folder");
    expected.emplace(tree.sRoot + "/-rf2", "2");
    EXPECT_EQ(Run(FO_DELETE, paths), Reasons());
    EXPECT_EQ(user.outcome.nFilesDone, paths.size());
    EXPECT_EQ(support::Restorable(support::HomeTrash()), expected);
    EXPECT_EQ(support::Contents(tree.sRoot), Reasons());
}

TEST_F(Trash, IsReadBackByOthers)
{
    if (!Shell("command -v trash-restore")) {
        GTEST_SKIP() << "trash-cli is not installed";
    }
    const std::string sPath = tree.File("na me\xC3\xA9", "content");
    EXPECT_EQ(Run(FO_DELETE, {sPath}), Reasons());
    EXPECT_TRUE(Shell("trash-list | grep -F '" + sPath + "'"));
    EXPECT_TRUE(Shell("echo 0 | trash-restore '" + sPath + "'"));
    EXPECT_EQ(Content(sPath), "content");
}

TEST_F(Trash, AsksOnceAndFirst)
{
    const std::vector<std::string> paths{tree.File("a", "12345"), tree.File("b", "123"),
                                         tree.sRoot + "/gone"};
    user.bConfirm = false;
    user.onConfirm = [&] { EXPECT_TRUE(fs::exists(paths[0]) && !fs::exists(support::HomeTrash())); };
    Run(FO_DELETE, paths);
    EXPECT_EQ(user.shown, std::vector<std::string>{"Confirm 2 8"});
    EXPECT_EQ(support::Contents(tree.sRoot).size(), 2U);
    user.bConfirm = true;
    EXPECT_EQ(Run(FO_DELETE, paths), (Reasons{{"gone", "It is no longer there."}}));
    EXPECT_EQ(user.shown,
              (std::vector<std::string>{"Confirm 2 8", "Confirm 2 8", "Started", "Finished 2 and 1"}));
    EXPECT_EQ(user.outcome.nFilesDone, 2U);
    user.shown.clear();
    Run(FO_DELETE, {});
    EXPECT_EQ(user.shown, std::vector<std::string>());
}

TEST_F(Trash, LeavesWhatIsNoLongerTheFileThatWasConfirmed)
{
    std::vector<std::string> paths;
    for (const char* pName : {"written", "grown", "other", "folder", "link", "gone", "fifo"}) {
        paths.push_back(tree.File(pName, "original"));
    }
    const std::string sKept = tree.File("kept", "original");
    user.onConfirm = [&] {
        const timespec times[2] = {{1, 0}, {1, 0}};
        EXPECT_EQ(utimensat(AT_FDCWD, paths[0].c_str(), times, 0), 0);
        fs::resize_file(paths[1], 100);
        fs::rename(sKept, paths[2]);
        for (std::size_t n = 3; n < paths.size(); ++n) {
            fs::remove(paths[n]);
        }
        fs::create_directory(paths[3]);
        fs::create_symlink("/etc/passwd", paths[4]);
        EXPECT_EQ(mkfifo(paths[6].c_str(), 0666), 0);
    };
    const std::string sChanged = "It has changed in the meantime.";
    EXPECT_EQ(Run(FO_DELETE, paths), (Reasons{{"written", sChanged},
                                              {"grown", sChanged},
                                              {"other", sChanged},
                                              {"folder", "It has become a folder."},
                                              {"link", "It has become a link."},
                                              {"gone", "It is no longer there."},
                                              {"fifo", "It is no longer an ordinary file."}}));
    EXPECT_EQ(std::distance(fs::directory_iterator(tree.sRoot), {}), 6);
    EXPECT_EQ(support::Restorable(support::HomeTrash()), Bin());
}

TEST_F(Trash, LeavesWhatItCouldNotRestore)
{
    const std::string sName(239, 'n');
    const std::string sLongest(255, 'n');
    const std::vector<std::string> paths{tree.File(sName, "1"), tree.File(sLongest, "2"),
                                         tree.File("locked/in", "3")};
    fs::permissions(tree.sRoot + "/locked", fs::perms(0555));
    const std::string sTooLong = "Its name is too long for the trash.";
    const Unprivileged anybody;
    EXPECT_EQ(Run(FO_DELETE, paths),
              (Reasons{{sName, sTooLong},
                       {sLongest, sTooLong},
                       {"in", "You are not permitted to remove it from its folder."}}));
    EXPECT_EQ(Content(paths[0]) + Content(paths[1]) + Content(paths[2]), "123");
}

/// The trash takes a file and notes nothing: its note cannot be written.
TEST_F(Trash, GivesBackWhatItHasNotNoted)
{
    const std::string sPath = tree.File("a", "content");
    std::size_t nWrite = 0;
    faults::Arm({});
    Run(FO_DELETE, {sPath});
    for (const auto& change : faults::Disarm()) {
        ++nWrite;
        if (change.sCall == "write") {
            break;
        }
    }
    fs::remove_all(std::getenv("XDG_DATA_HOME"));
    tree.File("a", "content");
    faults::Arm({{nWrite, ENOSPC}, false, true, {}});
    const auto reasons = Run(FO_DELETE, {sPath});
    faults::Disarm();
    EXPECT_EQ(reasons,
              (Reasons{{"a", "The trash could not note where it came from. It has been put back."}}));
    EXPECT_EQ(Content(sPath), "content");
    EXPECT_EQ(support::Contents(support::HomeTrash() + "/info"), Reasons());
}

TEST_F(Trash, StopsWhenCancelled)
{
    user.onProgress = [](const auto& progress) { return progress.nFilesDone < 1; };
    EXPECT_EQ(Run(FO_DELETE, {tree.File("a"), tree.File("b"), tree.File("c")}), Reasons());
    EXPECT_TRUE(user.outcome.bCancelled);
    EXPECT_EQ(user.outcome.nFilesDone, 1U);
    EXPECT_EQ(support::Contents(tree.sRoot), (Reasons{{"b", ""}, {"c", ""}}));
}

TEST_F(Trash, ShellRefusesWhatItCannotCarryOutAtAll)
{
    desktop::ShellFileOperations operations(user);
    const std::string sPath = tree.File("a");
    auto request = support::Request(platform::FO_MOVE, {sPath}, tree.sRoot);
    request.pTo += request.pTo;
    EXPECT_NE(operations.SHFileOperationA(request), 0);
    request = support::Request(platform::FO_MOVE, {sPath}, tree.sRoot);
    request.fFlags = 0;
    EXPECT_NE(operations.SHFileOperationA(request), 0);
    request.wFunc = 4;
    EXPECT_NE(operations.SHFileOperationA(request), 0);
    EXPECT_EQ(user.shown, std::vector<std::string>());
    fs::create_symlink("nowhere", tree.sRoot + "/link");
    EXPECT_NE(operations.SHGetFileInfoA(sPath, 0, platform::SHGFI_DISPLAYNAME), 0);
    EXPECT_NE(operations.SHGetFileInfoA(tree.sRoot + "/link", 0, platform::SHGFI_DISPLAYNAME), 0);
    EXPECT_EQ(operations.SHGetFileInfoA(tree.sRoot + "/gone", 0, platform::SHGFI_DISPLAYNAME), 0);
}

} // namespace
