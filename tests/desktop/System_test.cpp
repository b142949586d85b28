// SPDX-License-Identifier: MIT
// What the system offers beside files: volumes, text files, messages, the locale, the time.

#include "MountTable.h"
#include "PacedEventLoop.h"
#include "PosixTextFiles.h"
#include "PosixVolumes.h"
#include "SystemMessages.h"
#include "TempTree.h"
#include "Texts.h"

#include <climits>
#include <sys/stat.h>

namespace {

TEST(Volumes, AreThoseAPersonMounts)
{
    std::istringstream mountInfo(
        "22 1 8:2 / / rw,relatime shared:1 - ext4 /dev/sda2 rw\n"
        "23 22 0:21 / /proc rw - proc proc rw\n"
        "24 22 8:1 / /boot/efi rw - vfat /dev/sda1 rw\n"
        "25 22 8:17 / /media/me/My\\040Disk\\134x rw shared:2 master:3 - vfat /dev/sdb1 rw\n"
        "26 22 8:18 / /mnt rw - ext4 /dev/sdb2 rw\n"
        "27 22 8:18 / /mnt rw - ext4 /dev/sdb2 rw\n"           // mounted over itself
        "28 22 8:2 /home/me/x /srv/x rw - ext4 /dev/sda2 rw\n" // a folder seen twice
        "29 22 0:40 /@data /data rw - btrfs /dev/sdc1 rw\n"
        "30 22 7:0 / /snap/core/1 ro - squashfs /dev/loop0 ro\n"
        "31 22 0:50 / /net/box rw - nfs4 box:/export rw\n"
        "32 22 0:51 / /net/share rw - cifs //box/share rw\n"
        "33 22 0:52 / /tmp rw - tmpfs tmpfs rw\n"
        "35 22 8:33 / /media/a\rb rw - ext4 /dev/sde1 rw\n" // ends of words elsewhere, letters here
        "34 22 0:53 / /bootleg rw - ext4 /dev/sdd1 rw\n"
        "a line cut sho");
    EXPECT_EQ(desktop::MountTable(mountInfo).Volumes(),
              (std::vector<std::string>{"/bootleg", "/data", "/media/a\rb", "/media/me/My Disk\\x", "/mnt",
                                        "/net/box", "/net/share"}));
}

TEST(Unescaped, GivesBackTheBytes)
{
    EXPECT_EQ(desktop::Unescaped(R"(My\040Disk\x2fa\x5Cb\134040)"), R"(My Disk/a\b\040)");
    EXPECT_EQ(desktop::Unescaped(R"(\777\04\x2)"), R"(\777\04\x2)"); // no byte, and cut short
}

TEST(Volumes, HaveALabelUnlessTheyHaveGone)
{
    desktop::PosixVolumes volumes;
    const support::TempTree tree;
    EXPECT_EQ(volumes.VolumeLabel(tree.sRoot).sError, "");
    EXPECT_EQ(volumes.VolumeLabel(tree.sRoot + "/go\nne").sError,
              "Cannot read " + tree.sRoot + "/go\\x0Ane: No such file or directory");
    EXPECT_NE(volumes.VolumeLabel(tree.File("file")).sError, "");
}

TEST(Volumes, AreToldApartByTheirFileSystem)
{
    desktop::PosixVolumes volumes;
    const support::TempTree tree;
    const std::string sHere = volumes.FileSystemOf(tree.sRoot + "/");
    EXPECT_NE(sHere, ""); // also in a root that is no mount
    EXPECT_EQ(volumes.FileSystemOf(tree.sRoot + "/gone/deeper/"), sHere);
    EXPECT_NE(volumes.FileSystemOf("/proc/self/"), volumes.FileSystemOf("/"));
    EXPECT_EQ(volumes.FileSystemOf("/process/"), volumes.FileSystemOf("/"));
}

TEST(PosixTextFiles, WriteLinesOverWhatIsThere)
{
    const support::TempTree tree;
    desktop::PosixTextFiles files;
    const std::string sPath = tree.File("report\xFF.txt", std::string(1'000'000, 'x'));
    std::filesystem::create_symlink(sPath, tree.sRoot + "/link");
    std::string sExpected;
    const auto h = files.OpenForOutput(tree.sRoot + "/link");
    for (int n = 0; n < 20'000; ++n) { // more than is held back
        const std::string sLine = n == 5 ? "" : "\xFE line " + std::to_string(n);
        EXPECT_TRUE(files.PrintLine(h, sLine));
        sExpected += sLine + "\r\n";
    }
    EXPECT_TRUE(files.CloseOutput(h));
    EXPECT_TRUE(support::Content(sPath) == sExpected);
    EXPECT_FALSE(files.PrintLine(h, "late") || files.CloseOutput(h));
}

TEST(PosixTextFiles, TellWhatCouldNotBeWritten)
{
    const support::TempTree tree;
    desktop::PosixTextFiles files;
    EXPECT_EQ(mkfifo((tree.sRoot + "/pipe").c_str(), 0600), 0);
    for (const std::string& sPath : {tree.sRoot, tree.sRoot + "/none/x", tree.sRoot + "/pipe"}) {
        EXPECT_EQ(files.OpenForOutput(sPath), platform::INVALID_HANDLE_VALUE) << sPath;
    }
    // A full disk, met while writing or at the end.
    for (const std::size_t nLength : {1'000'000U, 1U}) {
        const auto h = files.OpenForOutput("/dev/full");
        EXPECT_EQ(files.PrintLine(h, std::string(nLength, 'x')), nLength == 1);
        EXPECT_FALSE(files.CloseOutput(h));
    }
}

TEST(SystemMessages, AreWrittenOverTheBuffer)
{
    const auto written = [](unsigned dwFlags, long nCode, std::size_t nBuffer) {
        std::string sBuffer(nBuffer, '.');
        platform::FormatMessageA(dwFlags, nCode, 0, sBuffer);
        return sBuffer;
    };
    EXPECT_EQ(written(4096, 2, 30), std::string("No such file or directory\0....", 30));
    EXPECT_EQ(written(4096, 31, 8), std::string("No appl\0", 8));
    EXPECT_EQ(written(4096, 2, 0), "");
    for (const long nUnknown : {9999L, -1L, 1L << 32U}) {
        EXPECT_EQ(written(4096, nUnknown, 4), "....");
    }
    EXPECT_EQ(written(0, 2, 4), "....");
}

TEST(GroupDigits, GroupsFromTheRightAsTheLocaleSays)
{
    using platform::GroupDigits;
    EXPECT_EQ(GroupDigits("999", ",", "\3"), "999");
    EXPECT_EQ(GroupDigits("1000", ",", "\3\3"), "1,000");
    EXPECT_EQ(GroupDigits("12345678", "\xE2\x80\xAF", "\3"), "12\u202F345\u202F678");
    EXPECT_EQ(GroupDigits("123456789", ",", "\3\2"), "12,34,56,789");
    EXPECT_EQ(GroupDigits("123456789", ",", {'\3', CHAR_MAX}), "123456,789");
    EXPECT_EQ(GroupDigits("1234567", "", ""), "1234567");
}

TEST(PacedEventLoop, RunsNowAndThenHoweverOftenItIsAsked)
{
    int nRuns = 0;
    desktop::PacedEventLoop loop([&] { ++nRuns; });
    int nYields = 0;
    while (nRuns < 3) {
        loop.DoEvents(1);
        ++nYields;
    }
    EXPECT_GT(nYields, 10 * nRuns);
}

} // namespace
