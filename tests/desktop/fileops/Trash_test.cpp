// SPDX-License-Identifier: MIT
#include "Operations.h"

#include <cstdlib>
#include <tuple>

namespace {

using namespace fileops_test;

using Trash = Operations;

TEST_F(Trash, KeepsFilesOfAnyNameWithTheWayBack)
{
    std::vector<std::string> paths;
    Bin expected;
    const std::vector<std::string> names{
        "-rf", "two\nlines", "\xFF\xFE%25", std::string(255, 'n'), " ", "...", "1/same", "2/same", "3/same"};
    for (const std::string& sName : names) {
        paths.push_back(tree.File(sName, sName));
        expected.emplace(paths.back(), sName);
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
    const std::tuple<const char*, const char*, const char*> cases[] = {
        // the last restores everything

        {"command -v trash-restore", "trash-list", "for n in 1 2 3 4; do echo 0 | trash-restore; done"},
        {"test -x /usr/libexec/gvfsd-trash && command -v dbus-run-session",
         "GIO_USE_VFS= dbus-run-session gio list -a trash::orig-path trash:///",
         "GIO_USE_VFS= dbus-run-session sh -c 'gio trash --list | cut -f 1 | xargs -n 1 gio trash "
         "--restore'"}};
    std::string sMissing;
    setenv("LC_ALL", "C.UTF-8", 1);
    for (const auto& [pIsThere, pList, pRestore] : cases) {
        if (!Shell(pIsThere)) {
            sMissing += std::string("Not there: ") + pIsThere + ". ";
            continue;
        }
        std::vector<std::string> paths;
        for (const char* pName : {"a.b.c", "we ird%25", "1/same", "2/same"}) {
            paths.push_back(tree.File(pName, pName));
        }
        EXPECT_EQ(Run(FO_DELETE, paths), Reasons());
        EXPECT_GE(std::system((std::string(pList) + " >" + Home() + "/list 2>/dev/null").c_str()), 0);
        const std::string sList = Content(Home() + "/list");
        EXPECT_TRUE(Shell("cd " + tree.sRoot + " && " + pRestore)) << pRestore;
        for (const std::string& sPath : paths) {
            EXPECT_NE(sList.find(sPath), sList.npos) << pList << ": " << sList;
            EXPECT_EQ(Content(sPath), sPath.substr(tree.sRoot.size() + 1)) << pRestore;
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
    fs::create_symlink("nowhere", tree.sRoot + "/link");
    user.onConfirm = [&] {
        EXPECT_FALSE(fs::exists(HomeTrash()));
        desktop::ShellFileOperations shell(user);
        for (const char* pName : {"/a", "/link", "/gone"}) { // what the shell finds
            const bool bFound = shell.SHGetFileInfoA(tree.sRoot + pName, 0, platform::SHGFI_DISPLAYNAME) != 0;
            EXPECT_EQ(bFound, pName != std::string("/gone"));
        }
    };
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
    const std::pair<const char*, std::string> cases[] = {
        {"touch -d @1 0", sChanged},
        {"truncate -s 100 1", sChanged},
        {"mv kept 2", sChanged},
        {"rm 3; mkdir 3", "It has become a folder."},
        {"rm 4; ln -s /etc/passwd 4", "It has become a link."},
        {"rm 5; mkfifo 5", "It is no longer an ordinary file."},
        {"rm 6", "It is no longer there."}};
    std::vector<std::string> paths;
    Reasons expected;
    std::string sCommands = "set -e; cd " + tree.sRoot;
    for (const auto& [pCommand, sReason] : cases) {
        const std::string sName = std::to_string(paths.size());
        paths.push_back(tree.File(sName, "original"));
        expected[sName] = sReason;
        sCommands += std::string("; ") + pCommand;
    }
    tree.File("kept", "original");
    user.onConfirm = [&] { EXPECT_TRUE(Shell(sCommands)); };
    EXPECT_EQ(Run(FO_DELETE, paths), expected);
    EXPECT_EQ(std::distance(fs::directory_iterator(tree.sRoot), {}), 6);
    EXPECT_EQ(Restorable(), Bin());
}

TEST_F(Trash, ReplacesNothingThatHasLostItsNote)
{
    // How many files of that name have gone to the trash before, and what lies there without a note.
    const std::tuple<std::string, int, std::string> cases[] = {{"first", 0, "first"},
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
    const std::tuple<const char*, std::string, std::set<std::string>> cases[] = {
        {"a private folder that another user has renamed", tree.sRoot + sHidden, {"diary", "keys"}},
        {"one with a single file", tree.sRoot + sHidden, {"diary"}},
        {"a leftover that was thrown away", HomeTrash() + "/files", {sHidden.substr(1) + "-photo"}},
    };
    for (const auto& [pName, sFolder, names] : cases) {
        SCOPED_TRACE(pName);
        fs::create_directories(sFolder);
        fs::permissions(sFolder, fs::perms::owner_all);
        for (const std::string& sName : names) {
            std::ofstream(sFolder + '/' + sName) << sName;
            std::ofstream(HomeTrash() + "/info/" + sName + ".trashinfo") << "[Trash Info]\nPath=/x\n";
        }
        EXPECT_EQ(run(), Reasons());
        for (const std::string& sName : names) {
            EXPECT_EQ(Content(sFolder + '/' + sName), sName);
        }
        fs::remove_all(tree.sRoot + sHidden);
    }
}

} // namespace
