// SPDX-License-Identifier: MIT
#include "Operations.h"

#include <sched.h>
#include <sys/mount.h>

namespace {

using namespace fileops_test;

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

    // Locked for root, too.
    std::ofstream(sVolume + "/b") << "b";
    ASSERT_TRUE(Shell("cd " + sVolume + " && mkdir fixed && chattr +i b fixed"));
    const std::string sFixed = "You are not permitted to change the destination folder.";
    EXPECT_EQ(Run(FO_MOVE, {sVolume + "/b"}, Folder("to")),
              (Reasons{{"b", "You are not permitted to remove it from its folder."}}));
    EXPECT_EQ(Run(FO_COPY, {tree.sRoot + "/b"}, sVolume + "/fixed"), (Reasons{{"b", sFixed}}));
    Shell("chattr -i " + sVolume + "/b");
    EXPECT_EQ(Run(FO_MOVE, {sVolume + "/b"}, sVolume + "/fixed"), (Reasons{{"b", sFixed}}));

    // Full.
    std::vector<std::string> paths;
    for (int n = 0; n < 20; ++n) {
        paths.push_back(sVolume + '/' + std::to_string(n));
        std::ofstream(paths.back()) << n;
    }
    Shell("dd if=/dev/zero bs=4k of=" + sVolume + "/filler");
    EXPECT_EQ(Run(FO_COPY, {tree.File("c", std::string(100'000, 'c'))}, sVolume),
              (Reasons{{"c", "There is no space left on the destination."}}));
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
