// SPDX-License-Identifier: MIT
// The power fails at each call of an operation that changes something: what the disks held in that moment is
// mounted, the next operation runs, and nothing is lost or left behind. Takes minutes: run by hand as root.

#include "FileWorld.h"
#include "Operations.h"

#include <sys/mount.h>

namespace {

using namespace fileops_test;
using support::FileWorld;
using support::tScenario;

const tScenario kScenarios[] = {
    {"delete", platform::FO_DELETE},
    {"move replacing", platform::FO_MOVE, false, false, true},
    {"move to another volume", platform::FO_MOVE, false, true},
    {"move from another volume, replacing", platform::FO_MOVE, true, false, true},
    {"copy replacing", platform::FO_COPY, false, false, true},
};

class PowerCut : public Operations, public ::testing::WithParamInterface<const char*>
{
protected:
    /// Makes two empty disks, the first of which has the home trash.
    bool Make()
    {
        setenv("XDG_DATA_HOME", (One() + "/share").c_str(), 1);
        const bool bXfs = GetParam() == std::string("xfs"); // which has no small volumes
        return Shell("cd " + tree.sRoot + " && mkdir one two && truncate -s " + (bXfs ? "320M" : "128M") +
                     " one.disk two.disk && mkfs." + GetParam() + " -q one.disk && mkfs." + GetParam() +
                     " -q two.disk") &&
               Mount("");
    }
    bool Mount(const std::string& sPrefix) const
    {
        return Shell("cd " + tree.sRoot + " && mount -o loop " + sPrefix + "one.disk one && mount -o loop " +
                     sPrefix + "two.disk two");
    }
    void Unmount() const
    {
        for (const std::string& sDisk : {One(), Two()}) {
            EXPECT_EQ(umount2(sDisk.c_str(), 0), 0) << sDisk;
        }
    }
    std::string One() const { return tree.sRoot + "/one"; }
    std::string Two() const { return tree.sRoot + "/two"; }
    void TearDown() override
    {
        umount2(One().c_str(), MNT_DETACH);
        umount2(Two().c_str(), MNT_DETACH);
    }
};

TEST_P(PowerCut, LosesNothing)
{
    if (!Make()) {
        GTEST_SKIP() << "no such volume can be made here";
    }
    for (const std::string& sDisk : {One(), Two()}) {
        fs::create_directory(sDisk + "/files");
    }
    FileWorld world(One() + "/files", Two() + "/files", One() + "/share/Trash");
    std::size_t nCuts = 0;
    for (const tScenario& scenario : kScenarios) {
        // Either the disk has what had to be on it by then, or also whatever else the file system had in
        // hand.
        for (const bool bCommitted : {false, true}) {
            std::vector<std::string> calls;
            world.Prepare(scenario);
            Shell("sync -f " + One() + ' ' + Two());
            const auto run = world.Run([&](const support::tCall& call, std::size_t) {
                if (call.bChanges) {
                    calls.push_back(call.sCall + ' ' + call.sPath);
                    const std::string sCommit = "for d in one two; do date >$d/x; sync $d/x; done; ";
                    EXPECT_TRUE(Shell("cd " + tree.sRoot + " && " + (bCommitted ? sCommit : "") +
                                      "for d in one two; do cp --sparse=always $d.disk " +
                                      std::to_string(calls.size()) + "$d.disk; done"));
                }
                return 0;
            });
            ASSERT_EQ(world.Wrong(run), "") << scenario.pName;
            Unmount();
            const auto required = world.required;
            for (std::size_t n = 1; n <= calls.size(); ++n) {
                world.required = required;
                ASSERT_TRUE(Mount(std::to_string(n)));
                std::string sWrong = world.Lost();
                const auto next = world.RunNext();
                sWrong += world.Lost() + world.LeftBehind() + (next.Ended() ? "" : "the next one dies; ");
                EXPECT_EQ(sWrong, "")
                    << GetParam() << ", " << scenario.pName << (bCommitted ? ", committed" : "")
                    << ", power fails at call " << n << ", " << calls[n - 1];
                Unmount();
                Shell("cd " + tree.sRoot + " && rm " + std::to_string(n) + "one.disk " + std::to_string(n) +
                      "two.disk");
                ++nCuts;
            }
            ASSERT_TRUE(Mount(""));
        }
    }
    std::cout << GetParam() << ": " << nCuts << " power cuts\n";
}

INSTANTIATE_TEST_SUITE_P(, PowerCut, ::testing::Values("ext4", "xfs", "btrfs"),
                         [](const auto& test) { return std::string(test.param); });

} // namespace
