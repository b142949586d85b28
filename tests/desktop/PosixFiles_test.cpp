#include "PosixFiles.h"

#include "ScriptedSearch.h"
#include "TempTree.h"
#include "mFindALLFiles.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <set>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>
#include <unistd.h>

namespace {

namespace fs = std::filesystem;
using support::TempTree;
using support::Unprivileged;

std::size_t OpenDescriptors()
{
    return static_cast<std::size_t>(std::distance(fs::directory_iterator("/proc/self/fd"), {}));
}

/// Fails the test if descriptors are left open.
class PosixFiles : public ::testing::Test
{
protected:
    void TearDown() override
    {
        files.SearchEnded();
        EXPECT_EQ(OpenDescriptors(), m_nBefore);
    }

    TempTree tree;
    desktop::PosixFiles files;

private:
    std::size_t m_nBefore = OpenDescriptors();
};

std::multiset<std::string> NamesIn(const platform::FolderListing& listing)
{
    std::multiset<std::string> names;
    for (std::size_t n = 0; n < listing.Count(); ++n) {
        const auto entry = listing.Entry(n);
        names.insert(std::string(search::TrimNull(entry.cFileName)) + (entry.bDirectory ? "/" : "") +
                     (entry.bHidden ? " hidden" : ""));
    }
    return names;
}

void MakeSocket(const std::string& sPath)
{
    const int h = socket(AF_UNIX, SOCK_STREAM, 0);
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    ASSERT_LT(sPath.size(), sizeof address.sun_path);
    sPath.copy(address.sun_path, sPath.size());
    ASSERT_EQ(bind(h, reinterpret_cast<const sockaddr*>(&address), sizeof address), 0);
    close(h);
}

TEST_F(PosixFiles, ListsFilesAndFoldersOfAnyNameAndNothingElse)
{
    const std::multiset<std::string> odd{"-rf", "two\nlines", "\xFF\xFE", std::string(255, 'n'), " ", "..."};
    for (const auto& sName : odd) {
        tree.File(sName, "12345");
    }
    fs::create_directory(tree.sRoot + "/.folder");
    fs::create_symlink(tree.sRoot, tree.sRoot + "/loop");
    fs::create_symlink("nowhere", tree.sRoot + "/dangling");
    fs::create_symlink("-rf", tree.sRoot + "/link");
    ASSERT_EQ(mkfifo((tree.sRoot + "/fifo").c_str(), 0666), 0);
    MakeSocket(tree.sRoot + "/socket");

    platform::FolderListing listing;
    ASSERT_TRUE(files.ListFolder(tree.sRoot + "/", listing));
    std::multiset<std::string> expected{".folder/ hidden", "... hidden"};
    for (const auto& sName : odd) {
        if (sName != "...") {
            expected.insert(sName);
        }
    }
    EXPECT_EQ(NamesIn(listing), expected);
    for (std::size_t n = 0; n < listing.Count(); ++n) {
        EXPECT_EQ(listing.Entry(n).nFileSize, listing.Entry(n).bDirectory ? 0 : 5);
    }
}

TEST_F(PosixFiles, ListsNothingOfWhatIsNoFolderToRead)
{
    tree.File("file");
    tree.File("locked/inside");
    tree.File("open/inside");
    fs::create_symlink("open", tree.sRoot + "/link");
    fs::permissions(tree.sRoot + "/open", fs::perms::all);
    fs::permissions(tree.sRoot, fs::perms::all);
    fs::permissions(tree.sRoot + "/locked", fs::perms::none);
    platform::FolderListing listing;
    const Unprivileged user;
    for (const char* pName : {"file", "gone", "link", "link/", "locked", "locked/"}) {
        EXPECT_FALSE(files.ListFolder(tree.sRoot + "/" + pName, listing)) << pName;
        EXPECT_EQ(listing.Count(), 0U);
        const bool bLeads = std::string_view(pName).starts_with("link");
        EXPECT_EQ(files.CanonicalFolder(tree.sRoot + "/" + pName).has_value(), bLeads) << pName;
    }
}

TEST_F(PosixFiles, ListsAFolderOfManyEntriesWholeWithTheirTimes)
{
    for (int n = 0; n < 5000; ++n) {
        tree.File(std::to_string(n));
    }
    const timespec times[2] = {{0, 0}, {1'000'000'000, 0}};
    ASSERT_EQ(utimensat(AT_FDCWD, (tree.sRoot + "/77").c_str(), times, 0), 0);
    platform::FolderListing listing;
    ASSERT_TRUE(files.ListFolder(tree.sRoot + "/", listing));
    ASSERT_EQ(listing.Count(), 5000U);
    std::size_t nOld = 0;
    for (std::size_t n = 0; n < listing.Count(); ++n) {
        nOld += listing.Entry(n).ftLastWriteTime.nSeconds == 1'000'000'000 ? 1U : 0U;
    }
    EXPECT_EQ(nOld, 1U);
}

TEST_F(PosixFiles, FindTheirWayWhereverAFolderStands)
{
    // The root after something in it, and again; a folder that gives way to another of its name.
    platform::FolderListing listing;
    for (const char* pFolder : {"/proc/", "/", "/"}) {
        EXPECT_TRUE(files.ListFolder(pFolder, listing)) << pFolder;
        EXPECT_GT(listing.Count(), 0U);
    }
    for (const char* pName : {"d/1", "d/2"}) {
        const auto h = files.CreateFileA(tree.File(pName, "old"));
        files.CloseHandle(h);
    }
    fs::rename(tree.sRoot + "/d", tree.sRoot + "/e");
    const auto h = files.CreateFileA(tree.File("d/3", "new"));
    EXPECT_EQ(files.FileLength(h), 3);
    files.CloseHandle(h);
}

TEST_F(PosixFiles, NamesAFolderByItsOwnPath)
{
    tree.File("real/sub/file");
    fs::create_directory_symlink("real", tree.sRoot + "/link");
    for (const char* pName : {"/real/sub", "/real/sub/", "/link/sub", "/link/../real/./sub//"}) {
        EXPECT_EQ(files.CanonicalFolder(tree.sRoot + pName), tree.sRoot + "/real/sub");
    }
    EXPECT_EQ(files.CanonicalFolder("/"), "/");
}

TEST_F(PosixFiles, OpensRegularFilesOnlyAndCreatesWhatHasGone)
{
    const std::string sFile = tree.File("file", "content");
    const std::string sLocked = tree.File("locked", "content");
    fs::permissions(sLocked, fs::perms::none);
    fs::create_symlink("file", tree.sRoot + "/link");
    ASSERT_EQ(mkfifo((tree.sRoot + "/fifo").c_str(), 0666), 0);
    for (const std::string& sPath : {tree.sRoot + "/link", tree.sRoot + "/fifo", tree.sRoot,
                                     tree.sRoot + "/no/folder", std::string("/dev/zero")}) {
        const auto h = files.CreateFileA(sPath);
        char c = 0;
        EXPECT_FALSE(files.ReadFile(h, &c, 1).bRead) << sPath;
        EXPECT_EQ(files.FileLength(h), -1) << sPath;
        files.CloseHandle(h);
    }
    {
        const Unprivileged user;
        EXPECT_EQ(files.CreateFileA(sLocked), platform::INVALID_HANDLE_VALUE);
        EXPECT_EQ(files.CreateFileA(tree.sRoot + "/not-allowed"), platform::INVALID_HANDLE_VALUE);
    }
    const auto h = files.CreateFileA(tree.sRoot + "/gone");
    ASSERT_NE(h, platform::INVALID_HANDLE_VALUE);
    EXPECT_EQ(files.FileLength(h), 0);
    files.CloseHandle(h);
    EXPECT_TRUE(files.PathFound(tree.sRoot + "/gone"));
    EXPECT_TRUE(files.PathFound(tree.sRoot + "/link"));
    EXPECT_FALSE(files.PathFound(tree.sRoot + "/still-gone"));
}

TEST_F(PosixFiles, ReadsWhatIsThere)
{
    const std::string sContent(3'000'000, 'x');
    const std::string sFile = tree.File("file", sContent);
    EXPECT_FALSE(files.AnnounceRead(sFile, 3'000'000)); // just written, it is in memory
    EXPECT_FALSE(files.AnnounceRead(tree.sRoot + "/gone", 1));
    EXPECT_FALSE(files.PathFound(tree.sRoot + "/gone"));
    const auto h = files.CreateFileA(sFile);
    EXPECT_EQ(files.FileLength(h), 3'000'000);
    std::string sBuffer(sContent.size() + 10, '\0');
    const auto result = files.ReadFile(h, sBuffer.data(), sBuffer.size());
    EXPECT_TRUE(result.bRead);
    EXPECT_EQ(result.nBytes, sContent.size());
    EXPECT_EQ(sBuffer, sContent + std::string(10, '\0'));
    files.CloseHandle(h);
    EXPECT_FALSE(files.ReadFile(h, sBuffer.data(), 1).bRead);
}

/// A chain of folders too deep for one path, made from within; a file at every level.
void MakeChain(const std::string& sRoot, const std::string& sName, int nLevels)
{
    int hFolder = open(sRoot.c_str(), O_RDONLY | O_DIRECTORY);
    for (int n = 0; n < nLevels; ++n) {
        ASSERT_EQ(mkdirat(hFolder, sName.c_str(), 0777), 0);
        const int hNext = openat(hFolder, sName.c_str(), O_RDONLY | O_DIRECTORY);
        ASSERT_GE(hNext, 0);
        close(hFolder);
        hFolder = hNext;
        close(openat(hFolder, std::string(255, 'f').c_str(), O_CREAT | O_WRONLY, 0666));
    }
    close(hFolder);
}

TEST_F(PosixFiles, AreWalkedToThePlatformsLimit)
{
    support::ScriptedSearch world;
    platform::UseSystem({&files, &platform::Events(), &platform::TheScreen(), &platform::Messages()});
    MakeChain(tree.sRoot, "d", 2100);
    search::ClearResults();
    search::FindAllFiles(tree.sRoot);
    const auto nLevels = (PATH_MAX - 1 - tree.sRoot.size() - 1) / 2;
    EXPECT_EQ(search::FileCount, static_cast<std::int32_t>(nLevels));
    // The last file's path is longer than the limit, and it can be read all the same.
    const std::string sLast = search::FileList[nLevels - 1].FullPath();
    EXPECT_GT(sLast.size(), static_cast<std::size_t>(PATH_MAX));
    const auto h = files.CreateFileA(sLast);
    EXPECT_NE(h, platform::INVALID_HANDLE_VALUE);
    files.CloseHandle(h);
    EXPECT_TRUE(files.PathFound(sLast));
    EXPECT_FALSE(files.PathFound(sLast.substr(0, sLast.size() - 1)));
}

} // namespace
