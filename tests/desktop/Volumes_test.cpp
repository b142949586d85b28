// SPDX-License-Identifier: MIT
#include "PosixVolumes.h"
#include "RootFolders.h"
#include "TempTree.h"
#include "Unescaped.h"
#include "VolumeLabel.h"

#include <sstream>

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
    EXPECT_EQ(desktop::MountedVolumes(mountInfo),
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
    const support::TempTree tree;
    EXPECT_EQ(desktop::VolumeLabel(tree.sRoot).sError, "");
    EXPECT_EQ(desktop::VolumeLabel(tree.sRoot + "/go\nne").sError,
              "Cannot read " + tree.sRoot + "/go\\x0Ane: No such file or directory");
    EXPECT_NE(desktop::VolumeLabel(tree.File("file")).sError, "");
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

} // namespace
