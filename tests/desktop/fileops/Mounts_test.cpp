#include "Operations.h"

#include <sched.h>
#include <sys/mount.h>

namespace {

using namespace fileops_test;
using platform::FO_COPY;
using platform::FO_DELETE;
using platform::FO_MOVE;

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

    /// A small ext4 volume; false if this machine cannot have one.
    [[nodiscard]] bool MountImage(const std::string& sSize) const
    {
        const std::string sImage = tree.sRoot + "/image";
        return Shell("truncate -s " + sSize + " '" + sImage + "' && mkfs.ext4 -q -m 0 '" + sImage +
                     "' && mount -o loop '" + sImage + "' '" + sVolume + "'");
    }

    TempTree outside; // a mount below /dev, where the home may be, never has a trash
    std::string sVolume = outside.sRoot;
};

TEST_F(Mounts, AFullDestinationKeepsNothingAndTakesWhatFits)
{
    ASSERT_EQ(mount("none", sVolume.c_str(), "tmpfs", 0, "size=1m"), 0);
    const std::vector<std::string> paths{tree.File("big", std::string(3'000'000, 'b')),
                                         tree.File("small", "s")};
    for (const unsigned wFunc : {FO_COPY, FO_MOVE}) {
        EXPECT_EQ(Run(wFunc, paths, sVolume),
                  (Reasons{{"big", "There is no space left on the destination."}}));
        EXPECT_EQ(support::Contents(sVolume), (Reasons{{"small", "s"}}));
        fs::remove(sVolume + "/small");
    }
    EXPECT_TRUE(fs::exists(paths[0]) && !fs::exists(paths[1]));
}

TEST_F(Mounts, WhereThereIsNoTrashNothingIsDeletedOrReplaced)
{
    ASSERT_EQ(mount("none", sVolume.c_str(), "tmpfs", 0, "size=1m"), 0);
    std::ofstream(sVolume + "/a") << "theirs";
    EXPECT_EQ(Run(FO_DELETE, {sVolume + "/a"}), (Reasons{{"a", "The volume that it is on has no trash."}}));
    user.answer = {Choice::Replace, true};
    EXPECT_EQ(
        Run(FO_MOVE, {tree.File("a", "mine")}, sVolume),
        (Reasons{{"a", "The file that is there cannot be put into the trash first. The volume that it is on "
                       "has no trash."}}));
    EXPECT_EQ(support::Contents(sVolume), (Reasons{{"a", "theirs"}}));
    EXPECT_EQ(Content(tree.sRoot + "/a"), "mine");
}

TEST_F(Mounts, AReadOnlyVolumeIsNamedAsSuch)
{
    const std::string sPath = tree.File("real/a", "x");
    ASSERT_EQ(mount((tree.sRoot + "/real").c_str(), sVolume.c_str(), nullptr, MS_BIND, nullptr), 0);
    ASSERT_EQ(mount(nullptr, sVolume.c_str(), nullptr, MS_BIND | MS_REMOUNT | MS_RDONLY, nullptr), 0);
    const Reasons there{{"a", "The disk that it is on is read-only."}};
    EXPECT_EQ(Run(FO_DELETE, {sVolume + "/a"}), there);
    EXPECT_EQ(Run(FO_MOVE, {sVolume + "/a"}, Folder("to")), there);
    EXPECT_EQ(Run(FO_COPY, {tree.File("b")}, sVolume), (Reasons{{"b", "The destination is read-only."}}));
    EXPECT_EQ(Run(FO_COPY, {sVolume + "/a"}, Folder("to")), Reasons());
    EXPECT_EQ(Content(sPath) + Content(tree.sRoot + "/to/a"), "xx");
}

TEST_F(Mounts, ASecondRouteToAFolderIsThatFolder)
{
    const std::string sPath = tree.File("real/a", "x");
    ASSERT_EQ(mount((tree.sRoot + "/real").c_str(), sVolume.c_str(), nullptr, MS_BIND, nullptr), 0);
    EXPECT_EQ(Run(FO_MOVE, {sPath}, sVolume), (Reasons{{"a", "It is in that folder already."}}));
    EXPECT_EQ(Run(FO_MOVE, {sVolume + "/a"}, Folder("to")), Reasons());
    EXPECT_EQ(Content(tree.sRoot + "/to/a"), "x");
    EXPECT_FALSE(fs::exists(sPath));
    std::ofstream(sPath) << "y";
    EXPECT_EQ(Run(FO_DELETE, {sVolume + "/a"}), (Reasons{{"a", "The volume that it is on has no trash."}}));
    EXPECT_EQ(Content(sPath), "y");
}

TEST_F(Mounts, AVolumeHasATrashOfItsOwnUntilItIsFull)
{
    if (!MountImage("4M")) {
        GTEST_SKIP() << "no ext4 volume can be made here";
    }
    std::ofstream(sVolume + "/a") << "content";
    EXPECT_EQ(Run(FO_DELETE, {sVolume + "/a"}), Reasons());
    const std::string sTrash = sVolume + "/.Trash-" + std::to_string(geteuid());
    EXPECT_EQ(support::Restorable(sTrash), (Bin{{"a", "content"}}));
    EXPECT_EQ(Run(FO_COPY, {tree.File("b")}, sTrash + "/files"),
              (Reasons{{"b", "The destination is inside the trash."}}));

    std::vector<std::string> paths;
    for (int n = 0; n < 20; ++n) {
        paths.push_back(sVolume + '/' + std::to_string(n));
        std::ofstream(paths.back()) << n;
    }
    Shell("dd if=/dev/zero bs=4k of='" + sVolume + "/filler'");
    const auto reasons = Run(FO_DELETE, paths);
    EXPECT_GT(reasons.size(), 0U);
    const Bin bin = support::Restorable(sTrash);
    for (int n = 0; n < 20; ++n) {
        const std::string sContent = std::to_string(n);
        EXPECT_EQ(Content(paths[static_cast<std::size_t>(n)]) == sContent, reasons.contains(sContent)) << n;
        EXPECT_NE(bin.contains({sContent, sContent}), reasons.contains(sContent)) << n;
    }
}

} // namespace
