// SPDX-License-Identifier: MIT
#include "PosixFiles.h"

#include "ScriptedSearch.h"
#include "TempTree.h"
#include "mFindALLFiles.h"

#include <climits>
#include <cstdint>
#include <fcntl.h>
#include <set>
#include <sys/stat.h>

namespace {

namespace fs = std::filesystem;

class PosixFiles : public ::testing::Test
{
protected:
    void TearDown() override { EXPECT_EQ(support::OpenDescriptors(), m_nBefore); }

    /// The length of a file once opened; -1 if that is refused.
    std::int64_t LengthOf(const std::string& sPath)
    {
        const auto h = files.CreateFileA(sPath);
        const std::int64_t nLength = files.FileLength(h);
        files.CloseHandle(h);
        return nLength;
    }

    /// Lists a folder as a search does.
    bool ListFolder(const std::string& sPath)
    {
        const auto reading = files.BeginReading({});
        auto answer = platform::Answer::NotYet;
        while (answer == platform::Answer::NotYet) {
            answer = reading->ListFolder(sPath, listing);
        }
        return answer == platform::Answer::Ready;
    }

    support::TempTree tree;
    desktop::PosixFiles files;
    platform::FolderListing listing;
    std::ptrdiff_t m_nBefore = support::OpenDescriptors();
};

TEST_F(PosixFiles, ListFilesAndFoldersOfAnyNameAndNothingElse)
{
    std::set<std::string> names{"-rf", "two\nlines", "\xFF\xFE", std::string(255, 'n'), " ", "..."};
    for (int n = 0; n < 3000; ++n) { // more than are read at once
        names.insert(std::to_string(n));
    }
    std::set<std::string> expected{".folder/ hidden"};
    for (const std::string& sName : names) {
        const timespec times[2] = {{0, 0}, {1'000'000'000, 0}};
        ASSERT_EQ(utimensat(AT_FDCWD, tree.File(sName, "12345").c_str(), times, 0), 0);
        expected.insert(sName == "..." ? "... hidden" : sName);
    }
    fs::create_directory(tree.sRoot + "/.folder");
    fs::create_symlink(tree.sRoot, tree.sRoot + "/loop");
    fs::create_symlink("-rf", tree.sRoot + "/link");
    ASSERT_EQ(mknod((tree.sRoot + "/fifo").c_str(), S_IFIFO | 0666, 0), 0);
    ASSERT_EQ(mknod((tree.sRoot + "/socket").c_str(), S_IFSOCK | 0666, 0), 0);
    ASSERT_TRUE(ListFolder(tree.sRoot + "/"));
    std::set<std::string> listed;
    for (std::size_t n = 0; n < listing.Count(); ++n) {
        const auto entry = listing.Entry(n);
        listed.insert(std::string(search::TrimNull(entry.cFileName)) + (entry.bDirectory ? "/" : "") +
                      (entry.bHidden ? " hidden" : ""));
        EXPECT_EQ(entry.nFileSize, entry.bDirectory ? 0 : 5);
        EXPECT_EQ(entry.ftLastWriteTime.nSeconds, entry.bDirectory ? 0 : 1'000'000'000);
    }
    EXPECT_EQ(listed, expected);
    EXPECT_EQ(listing.Count(), expected.size());
}

TEST_F(PosixFiles, ListNothingOfWhatIsNoFolderToRead)
{
    tree.File("file");
    tree.File("locked/inside");
    tree.File("open/inside");
    fs::create_symlink("open", tree.sRoot + "/link");
    fs::permissions(tree.sRoot + "/open", fs::perms::all);
    fs::permissions(tree.sRoot, fs::perms::all);
    fs::permissions(tree.sRoot + "/locked", fs::perms::none);
    const support::Unprivileged user;
    for (const std::string sName : {"file", "gone", "link", "link/", "locked", "locked/"}) {
        EXPECT_FALSE(ListFolder(tree.sRoot + "/" + sName)) << sName;
        EXPECT_EQ(listing.Count(), 0U);
        EXPECT_EQ(files.CanonicalFolder(tree.sRoot + "/" + sName).has_value(), sName.starts_with("link"));
    }
}

TEST_F(PosixFiles, FindTheirWayWhereverAFolderStands)
{
    // The root after something in it, and again; a folder that gives way to another of its name.
    for (const char* pFolder : {"/proc/", "/", "/"}) {
        EXPECT_TRUE(ListFolder(pFolder) && listing.Count() > 0) << pFolder;
    }
    LengthOf(tree.File("d/1"));
    LengthOf(tree.File("d/2"));
    fs::rename(tree.sRoot + "/d", tree.sRoot + "/e");
    EXPECT_EQ(LengthOf(tree.File("d/3", "new")), 3);
    // A folder is named by its own path.
    fs::create_directory_symlink("d", tree.sRoot + "/link");
    for (const char* pName : {"/d", "/d/", "/link", "/link/../d/.//"}) {
        EXPECT_EQ(files.CanonicalFolder(tree.sRoot + pName), tree.sRoot + "/d");
    }
    EXPECT_EQ(files.CanonicalFolder("/"), "/");
}

TEST_F(PosixFiles, OpenRegularFilesOnlyAndCreateWhatHasGone)
{
    const std::string sLocked = tree.File("locked", "content");
    const std::string sGone = tree.sRoot + "/gone";
    fs::permissions(sLocked, fs::perms::none);
    fs::create_symlink("locked", tree.sRoot + "/link");
    ASSERT_EQ(mkfifo((tree.sRoot + "/fifo").c_str(), 0666), 0);
    for (const std::string& sPath : {tree.sRoot + "/link", tree.sRoot + "/fifo", tree.sRoot,
                                     tree.sRoot + "/no/folder", std::string("/dev/zero")}) {
        const auto h = files.CreateFileA(sPath);
        char c = 0;
        EXPECT_FALSE(files.ReadFile(h, &c, 1).bRead) << sPath;
        EXPECT_EQ(files.FileLength(h), -1) << sPath;
        files.CloseHandle(h);
    }
    fs::permissions(tree.sRoot, fs::perms(0555));
    {
        const support::Unprivileged user;
        EXPECT_EQ(LengthOf(sLocked), -1);
        EXPECT_EQ(LengthOf(sGone), -1);
    }
    fs::permissions(tree.sRoot, fs::perms(0755));
    EXPECT_FALSE(files.PathFound(sGone));
    EXPECT_EQ(LengthOf(sGone), 0);
    EXPECT_TRUE(files.PathFound(sGone) && files.PathFound(tree.sRoot + "/link"));
}

TEST_F(PosixFiles, AreWalkedToThePlatformsLimit)
{
    // A chain of folders too deep for one path, made from within; a file at every level. One of the folders
    // has the longest path that the system takes.
    const auto here = fs::current_path();
    fs::current_path(tree.sRoot);
    const bool bOdd = (PATH_MAX - 1 - tree.sRoot.size()) % 2 != 0;
    for (int n = 0; n < 2100; ++n) {
        const char* const pName = n == 0 && bOdd ? "dd" : "d";
        ASSERT_EQ(mkdir(pName, 0777) + chdir(pName), 0);
        std::ofstream(std::string(255, 'f'));
    }
    fs::current_path(here);
    support::ScriptedSearch world;
    platform::UseSystem(
        {&files, platform::System().events, platform::System().screen, platform::System().messages});
    search::ClearResults();
    search::FindAllFiles(tree.sRoot, *files.BeginReading({}));
    const auto nLevels = (PATH_MAX - 1 - tree.sRoot.size()) / 2;
    EXPECT_EQ(search::FileCount, static_cast<std::int32_t>(nLevels));
    // The last file's path is longer than the limit, and it can be read all the same.
    const std::string sLast = search::FileList[nLevels - 1].FullPath();
    EXPECT_GT(sLast.size(), static_cast<std::size_t>(PATH_MAX));
    EXPECT_EQ(LengthOf(sLast), 0);
    EXPECT_TRUE(files.PathFound(sLast) && !files.PathFound(sLast.substr(0, sLast.size() - 1)));
}

} // namespace
