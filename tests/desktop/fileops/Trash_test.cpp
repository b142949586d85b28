// SPDX-License-Identifier: MIT
#include "Operations.h"

#include <cstdlib>

namespace {

using namespace fileops_test;
using platform::FO_DELETE;

using Trash = Operations;

TEST_F(Trash, KeepsFilesOfAnyNameWithTheWayBack)
{
    std::vector<std::string> paths;
    Bin expected;
    const std::vector<std::string> names{
        "-rf", "two\nlines", "\xFF\xFE%25", std::string(255, 'n'), " ", "...", "1/same", "2/same", "3/same"};
    for (const std::string& sName : names) {
        paths.push_back(tree.File(sName, sName + "!"));
        expected.emplace(paths.back(), sName + "!");
    }
    expected.emplace(tree.File("roundabout", "2"), "2");
    paths.push_back(tree.sRoot + "/1/../roundabout");
    EXPECT_EQ(Run(FO_DELETE, paths), Reasons());
    EXPECT_EQ(user.outcome.nFilesDone, paths.size());
    EXPECT_EQ(Restorable(), expected);
    EXPECT_EQ(Contents(tree.sRoot), Reasons());
}

TEST_F(Trash, OtherProgramsKnowTheWayBack)
{
    const struct {
        const char* pProgram;
        const char* pIsThere;
        const char* pList;
        const char* pRestore; ///< everything
    } cases[] = {{"trash-cli", "command -v trash-restore", "trash-list",
                  "for n in 1 2 3 4; do echo 0 | trash-restore; done"},
                 {"gvfs", "test -x /usr/libexec/gvfsd-trash && command -v dbus-run-session",
                  "GIO_USE_VFS= dbus-run-session gio list -a trash::orig-path trash:///",
                  "GIO_USE_VFS= dbus-run-session sh -c 'gio trash --list | cut -f 1 | xargs -n 1 gio trash "
                  "--restore'"}};
    std::string sMissing;
    setenv("LC_ALL", "C.UTF-8", 1);
    for (const auto& each : cases) {
        if (!Shell(each.pIsThere)) {
            sMissing += each.pProgram + std::string(" is not installed. ");
            continue;
        }
        std::vector<std::string> paths;
        for (const char* pName : {"a.b.c", "we ird%25", "1/same", "2/same"}) {
            paths.push_back(tree.File(pName, pName));
        }
        EXPECT_EQ(Run(FO_DELETE, paths), Reasons());
        std::system((std::string(each.pList) + " >" + Home() + "/list 2>/dev/null").c_str());
        const std::string sList = Content(Home() + "/list");
        EXPECT_TRUE(Shell("cd " + tree.sRoot + " && " + each.pRestore)) << each.pProgram;
        for (const std::string& sPath : paths) {
            EXPECT_NE(sList.find(sPath), sList.npos) << each.pProgram << ": " << sList;
            EXPECT_EQ(Content(sPath), sPath.substr(tree.sRoot.size() + 1)) << each.pProgram;
        }
    }
    unsetenv("LC_ALL");
    if (!sMissing.empty()) {
        GTEST_SKIP() << sMissing;
    }
}

TEST_F(Trash, AsksOnceAndFirst)
{
    const std::vector<std::string> paths{tree.File("a", "12345"), tree.File("b", "123"),
                                         tree.sRoot + "/gone"};
    user.consent = desktop::Consent::Cancel;
    user.onConfirm = [&] { EXPECT_TRUE(fs::exists(paths[0]) && !fs::exists(HomeTrash())); };
    Run(FO_DELETE, paths);
    Run(FO_DELETE, {});
    EXPECT_EQ(Contents(tree.sRoot).size(), 2U);
    user.consent = desktop::Consent::All;
    EXPECT_EQ(Run(FO_DELETE, paths), (Reasons{{"gone", "It is no longer there."}}));
    EXPECT_EQ(user.shown,
              (std::vector<std::string>{"Confirm 2 8", "Confirm 2 8", "Started", "Finished 2 and 1"}));
    EXPECT_EQ(user.outcome.nFilesDone, 2U);
}

TEST_F(Trash, LeavesWhatIsNoLongerTheFileThatWasConfirmed)
{
    const std::string sChanged = "It has changed in the meantime.";
    const struct {
        const char* pCommand;
        std::string sReason;
    } cases[] = {{"touch -d @1 0", sChanged},
                 {"truncate -s 100 1", sChanged},
                 {"mv kept 2", sChanged},
                 {"rm 3; mkdir 3", "It has become a folder."},
                 {"rm 4; ln -s /etc/passwd 4", "It has become a link."},
                 {"rm 5; mkfifo 5", "It is no longer an ordinary file."},
                 {"rm 6", "It is no longer there."}};
    std::vector<std::string> paths;
    Reasons expected;
    for (const auto& each : cases) {
        const std::string sName = std::to_string(paths.size());
        paths.push_back(tree.File(sName, "original"));
        expected[sName] = each.sReason;
    }
    tree.File("kept", "original");
    user.onConfirm = [&] {
        for (const auto& each : cases) {
            EXPECT_TRUE(Shell("cd " + tree.sRoot + " && " + each.pCommand));
        }
    };
    EXPECT_EQ(Run(FO_DELETE, paths), expected);
    EXPECT_EQ(std::distance(fs::directory_iterator(tree.sRoot), {}), 6);
    EXPECT_EQ(Restorable(), Bin());
}

TEST_F(Trash, LeavesWhatItMayNotTake)
{
    const std::string sPath = tree.File("locked/in");
    fs::permissions(tree.sRoot + "/locked", fs::perms(0555));
    const Unprivileged anybody;
    EXPECT_EQ(Run(FO_DELETE, {sPath}),
              (Reasons{{"in", "You are not permitted to remove it from its folder."}}));
    EXPECT_TRUE(fs::exists(sPath));
}

TEST_F(Trash, ReplacesNothingThatHasLostItsNote)
{
    const struct {
        std::string sName;
        int nBefore; ///< files of that name that have gone to the trash before
        std::string sLost;
    } cases[] = {{"first", 0, "first"},
                 {"second", 1, "second.2"},
                 {"a.b.c", 1, "a.2.b.c"},
                 {".hidden", 1, ".2.hidden"},
                 {"many", 20, "many.21"}};
    fs::create_directories(HomeTrash() + "/files");
    for (const auto& [sName, nBefore, sLost] : cases) {
        for (int n = 0; n < nBefore; ++n) {
            EXPECT_EQ(Run(FO_DELETE, {tree.File(sName)}), Reasons());
        }
        std::ofstream(HomeTrash() + "/files/" + sLost) << "lost";
        EXPECT_EQ(Run(FO_DELETE, {tree.File(sName, "new")}), Reasons());
        EXPECT_EQ(Content(HomeTrash() + "/files/" + sLost), "lost");
        EXPECT_TRUE(Restorable().contains({tree.sRoot + '/' + sName, "new"}));
    }
}

TEST_F(Trash, LeavesWhatIsInATrash)
{
    const char* const kInTrash =
        "It lies in a trash already. Restore it from there, or empty the trash if it is "
        "to be gone for good.";
    for (const char* pTrash : {"/share/Trash", "/.Trash/7", "/.Trash-7", "/u/.local/share/Trash"}) {
        const std::string sTrash = Home() + pTrash;
        fs::create_directories(sTrash + "/info");
        const std::string sNote = sTrash + "/info/a.trashinfo";
        std::ofstream(sNote) << "note";
        EXPECT_EQ(Run(FO_DELETE, {sNote}), (Reasons{{"a.trashinfo", kInTrash}})) << pTrash;
        EXPECT_TRUE(fs::exists(sNote));
    }
}

/// What has the name of something that a run of ours leaves when it dies, but was not left by one.
TEST_F(Trash, LeavesWhatOnlyLooksLikeItsLeftovers)
{
    const std::string sHidden = "/.tallyfen-s-BBBBBBBBBBBBBBBBBBBBBB";
    const auto run = [&] { return Run(FO_DELETE, {tree.File("each", "e")}); };
    ASSERT_EQ(run(), Reasons());
    const struct {
        const char* pName;
        std::string sFolder;
        std::set<std::string> names;
    } cases[] = {
        {"a private folder that another user has renamed", tree.sRoot + sHidden, {"diary", "keys"}},
        {"one with a single file", tree.sRoot + sHidden, {"diary"}},
        {"a leftover that was thrown away", HomeTrash() + "/files", {sHidden.substr(1) + "-photo"}},
    };
    for (const auto& each : cases) {
        SCOPED_TRACE(each.pName);
        fs::create_directories(each.sFolder);
        fs::permissions(each.sFolder, fs::perms::owner_all);
        for (const std::string& sName : each.names) {
            std::ofstream(each.sFolder + '/' + sName) << sName;
            std::ofstream(HomeTrash() + "/info/" + sName + ".trashinfo") << "[Trash Info]\nPath=/x\n";
        }
        EXPECT_EQ(run(), Reasons());
        for (const std::string& sName : each.names) {
            EXPECT_EQ(Content(each.sFolder + '/' + sName), sName);
        }
        fs::remove_all(tree.sRoot + sHidden);
    }
}

TEST_F(Trash, ShellFindsWhatIsThere)
{
    desktop::ShellFileOperations operations(user);
    tree.File("a");
    fs::create_symlink("nowhere", tree.sRoot + "/link");
    for (const char* pName : {"/a", "/link", "/gone"}) {
        const bool bThere =
            operations.SHGetFileInfoA(tree.sRoot + pName, 0, platform::SHGFI_DISPLAYNAME) != 0;
        EXPECT_EQ(bThere, pName != std::string("/gone"));
    }
}

} // namespace
