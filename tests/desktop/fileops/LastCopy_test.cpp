// SPDX-License-Identifier: MIT
// While a file goes to the trash, another program acts on the copy that is to stay, between any two calls; or
// any of the calls fails: the contents are never left without a file outside the trash by what we do.

#include "Operations.h"
#include "Supervisor.h"
#include "Texts.h"

#include <fcntl.h>

namespace {

using namespace fileops_test;

/// A group of two rows, of which one goes and one stays.
class Pair final : public platform::FileGroups
{
public:
    Pair(std::string sGoes, std::string sStays) : sPath(std::move(sGoes)), sCopy(std::move(sStays)) {}

    platform::tFileGroups GroupsOf(std::span<const std::string> /*paths*/) override
    {
        platform::tFileGroups groups;
        const auto shown = [&](const std::string& sFile) -> platform::tShownFile {
            const std::size_t nName = sFile.rfind('/') + 1;
            const auto identity = desktop::LookAt(sFile).Identity();
            return {groups.texts.Add(sFile.substr(0, nName)), groups.texts.Add(sFile.substr(nName)),
                    groups.texts.Add(platform::FormatNumber(identity.cySize)),
                    groups.texts.Add(platform::FormatDateTime(desktop::DateOf(identity)))};
        };
        groups.files.push_back(platform::tFileGroups::tFile{shown(sPath), 0});
        groups.groups.push_back({shown(sCopy)});
        return groups;
    }

    std::string sPath, sCopy;
};

constexpr const char* kText = "what both hold";

struct tIntrusion {
    const char* pName;
    std::function<bool(const Pair&)> act;
};

/// Waits for nobody who holds a lease: the process watched stands still meanwhile.
bool Write(const std::string& sPath, int nFlags)
{
    const int h = open(sPath.c_str(), O_WRONLY | O_NONBLOCK | O_CLOEXEC | nFlags, 0600);
    const bool bWritten = h >= 0 && write(h, "WHAT both hold", 14) == 14;
    close(h);
    return bWritten;
}

const tIntrusion kIntrusions[] = {
    {"writes to it", [](auto& pair) { return Write(pair.sCopy, 0); }},
    {"appends to it", [](auto& pair) { return Write(pair.sCopy, O_APPEND); }},
    {"empties it and writes to it", [](auto& pair) { return Write(pair.sCopy, O_TRUNC); }},
    {"removes it", [](auto& pair) { return unlink(pair.sCopy.c_str()) == 0; }},
    {"saves another one in its place",
     [](auto& pair) {
         const std::string sNew = pair.sCopy + ".new";
         return Write(sNew, O_CREAT) && rename(sNew.c_str(), pair.sCopy.c_str()) == 0;
     }},
    {"makes it a link to the one that goes",
     [](auto& pair) {
         return unlink(pair.sCopy.c_str()) == 0 && symlink(pair.sPath.c_str(), pair.sCopy.c_str()) == 0;
     }},
    {"makes it a second name of the one that goes",
     [](auto& pair) {
         return unlink(pair.sCopy.c_str()) == 0 && link(pair.sPath.c_str(), pair.sCopy.c_str()) == 0;
     }},
    {"makes its folder a link to that of the one that goes",
     [](auto& pair) {
         const std::string sFolder = fs::path(pair.sCopy).parent_path();
         return unlink(pair.sCopy.c_str()) == 0 && rmdir(sFolder.c_str()) == 0 &&
                symlink(fs::path(pair.sPath).parent_path().c_str(), sFolder.c_str()) == 0;
     }},
};

class LastCopy : public ::testing::Test
{
protected:
    /// Deletes the one file with the first answer, `judge` seeing each call.
    support::tSupervised Delete(const support::Judge& judge)
    {
        fs::remove_all(tree.sRoot + "/goes");
        fs::remove_all(tree.sRoot + "/stays");
        fs::remove_all(HomeTrash());
        tree.File("goes/a", kText);
        tree.File("stays/a", kText);
        usleep(5000); // until the clock that the system stamps files with has moved on
        return support::Supervise(
            {tree.sRoot, Home() + "/share"},
            [&] {
                support::ScriptedOperations user;
                user.consent = desktop::Consent::WithCopy;
                desktop::ShellFileOperations operations(user, true);
                operations.UseGroups(pair);
                operations.SHFileOperationA(support::Request(platform::FO_DELETE, {pair.sPath}));
                return std::to_string(user.outcome.nFilesDone);
            },
            judge);
    }

    [[nodiscard]] bool IsLeft() const
    {
        return Content(pair.sPath) == kText || (!fs::is_symlink(pair.sCopy) && Content(pair.sCopy) == kText);
    }

    TempTree tree{Home()};
    Pair pair{tree.sRoot + "/goes/a", tree.sRoot + "/stays/a"};
};

TEST_F(LastCopy, OutlivesWhatOthersDo)
{
    const auto undisturbed = Delete([](const auto&, std::size_t) { return 0; });
    if (!undisturbed.bPossible) {
        GTEST_SKIP() << "nobody may watch a process here";
    }
    ASSERT_EQ(undisturbed.sSaid, "1");
    ASSERT_FALSE(fs::exists(pair.sPath));
    std::size_t nRuns = 0;
    for (const tIntrusion& each : kIntrusions) {
        for (std::size_t nAt = 1; nAt <= undisturbed.calls.size(); ++nAt) {
            bool bActed = false;
            bool bSeenSince = false;
            Delete([&](const support::tCall& call, std::size_t n) {
                // Where somebody holds it, at the next call.
                bActed = bActed || (n >= nAt && each.act(pair));
                // What happens to the copy after our last look at it is not ours to answer for.
                bSeenSince = bSeenSince || (bActed && call.sCall.find("stat") != std::string::npos &&
                                            call.sPath == pair.sCopy);
                return 0;
            });
            nRuns += bActed ? 1U : 0U;
            EXPECT_TRUE(!bActed || !bSeenSince || IsLeft())
                << each.pName << ", at call " << nAt << " (" << undisturbed.calls[nAt - 1].sCall << ' '
                << undisturbed.calls[nAt - 1].sPath << ')';
        }
    }
    std::cout << nRuns << " runs, " << undisturbed.calls.size() << " calls\n";
}

TEST_F(LastCopy, OutlivesEveryFault)
{
    const auto clean = Delete([](const auto&, std::size_t) { return 0; });
    if (!clean.bPossible) {
        GTEST_SKIP() << "nobody may watch a process here";
    }
    for (std::size_t nAt = 1; nAt <= clean.calls.size(); ++nAt) {
        for (const int nError : {EIO, EACCES, ENOENT, EINTR}) {
            const auto run = Delete([&](const auto&, std::size_t n) { return n == nAt ? nError : 0; });
            const bool bThere = fs::exists(pair.sPath);
            EXPECT_TRUE(IsLeft() && (bThere ? run.sSaid == "0" : Restorable().size() == 1U))
                << clean.calls[nAt - 1].sCall << ' ' << clean.calls[nAt - 1].sPath << ", error " << nError;
        }
    }
}

} // namespace
