// SPDX-License-Identifier: MIT
// While a file goes to the trash, another program acts on the copy that is to stay, between any two calls; or
// any of the calls fails: the contents are never left without a file outside the trash by what we do.

#include "Operations.h"
#include "Supervisor.h"

#include <fcntl.h>
#include <sys/wait.h>

namespace {

using namespace fileops_test;

constexpr const char* kText = "what both hold";

/// Waits for nobody who holds a lease: the process watched stands still meanwhile.
bool Write(const std::string& sPath, int nFlags = 0)
{
    const int h = open(sPath.c_str(), O_WRONLY | O_NONBLOCK | O_CLOEXEC | nFlags, 0600);
    const bool bWritten = h >= 0 && write(h, "WHAT both hold", 14) == 14;
    close(h);
    return bWritten;
}

bool WriteUnseen(const char* pPath)
{
    const timespec times[] = {StatusOf(pPath).st_atim, StatusOf(pPath).st_mtim};
    return Write(pPath) && utimensat(AT_FDCWD, pPath, times, 0) == 0;
}

const std::pair<const char*, bool (*)(const char* pGoes, const char* pStays)> kIntrusions[] = {
    {"writes to it", [](auto, auto pStays) { return Write(pStays, 0); }},
    {"appends to it", [](auto, auto pStays) { return Write(pStays, O_APPEND); }},
    {"empties it and writes to it", [](auto, auto pStays) { return Write(pStays, O_TRUNC); }},
    {"removes it", [](auto, auto pStays) { return unlink(pStays) == 0; }},
    {"saves another one in its place",
     [](auto, auto pStays) {
         const std::string sNew = std::string(pStays) + ".new";
         return Write(sNew, O_CREAT) && rename(sNew.c_str(), pStays) == 0;
     }},
    {"makes it a link to the one that goes",
     [](auto pGoes, auto pStays) { return unlink(pStays) == 0 && symlink(pGoes, pStays) == 0; }},
    {"makes it a second name of the one that goes",
     [](auto pGoes, auto pStays) { return unlink(pStays) == 0 && link(pGoes, pStays) == 0; }},
    {"throws its folder away",
     [](auto, auto pStays) {
         const std::string sFolder = fs::path(pStays).parent_path();
         return rename(sFolder.c_str(), (HomeTrash() + "/stays").c_str()) == 0;
     }},
    {"writes to the one that goes and sets its time back",
     [](auto pGoes, auto) { return WriteUnseen(pGoes); }},
    {"writes to the one that goes as soon as it may",
     [](auto pGoes, auto) {
         if (fork() == 0) {
             const int h = open(pGoes, O_WRONLY | O_CLOEXEC);
             _exit(h >= 0 && write(h, "WHAT both hold", 14) == 14 ? 0 : 1);
         }
         usleep(2000); // until it waits
         return true;
     }},
    {"makes its folder a link to that of the one that goes",
     [](auto, auto pStays) {
         const std::string sFolder = fs::path(pStays).parent_path();
         return unlink(pStays) == 0 && rmdir(sFolder.c_str()) == 0 && symlink("goes", sFolder.c_str()) == 0;
     }},
};

class LastCopy : public ::testing::Test
{
protected:
    /// Deletes the one file with the first answer, `judge` seeing each call.
    support::tSupervised Delete(const support::Judge& judge)
    {
        for (const std::string& sFolder : {tree.sRoot + "/goes", tree.sRoot + "/stays", HomeTrash()}) {
            fs::remove_all(sFolder);
        }
        tree.File("goes/a", kText);
        tree.File("stays/a", kText);
        usleep(5000); // until the clock that the system stamps files with has moved on
        const auto work = [&] {
            support::ScriptedOperations user;
            user.consent = desktop::Consent::WithCopy;
            desktop::ShellFileOperations operations(user, true);
            operations.UseGroups(pair);
            operations.SHFileOperationA(support::Request(FO_DELETE, {sGoes}));
            return std::to_string(user.outcome.nFilesDone);
        };
        return support::Supervise({tree.sRoot, Home() + "/share"}, work, judge);
    }

    [[nodiscard]] bool IsLeft() const
    {
        return Content(sGoes) == kText || (!fs::is_symlink(sStays) && Content(sStays) == kText);
    }

    TempTree tree{Home()};
    OneGroup pair{{tree.sRoot + "/stays/a"}};
    const std::string sGoes = tree.sRoot + "/goes/a", sStays = tree.sRoot + "/stays/a";
    const std::vector<support::tCall> calls = Delete([](const auto&, std::size_t) { return 0; }).calls;
};

TEST_F(LastCopy, OutlivesWhatOthersDo)
{
    ASSERT_TRUE(!calls.empty() && !fs::exists(sGoes) && fs::exists(sStays));
    for (const auto& each : kIntrusions) {
        for (std::size_t nAt = 1; nAt <= calls.size(); ++nAt) {
            bool bActed = false;
            bool bSeenSince = false;
            Delete([&](const support::tCall& call, std::size_t n) {
                // Where somebody holds it, at the next call.
                bActed = bActed || (n >= nAt && each.second(sGoes.c_str(), sStays.c_str()));
                // What happens to the copy after our last look at it is not ours to answer for.
                bSeenSince =
                    bSeenSince ||
                    (bActed && (call.sCall.starts_with("rename") ||
                                (call.sCall.find("stat") != std::string::npos && call.sPath == sStays)));
                return 0;
            });
            while (wait(nullptr) > 0) {
            }
            EXPECT_TRUE(!bActed || !bSeenSince || IsLeft())
                << each.first << ", at " << calls[nAt - 1].sCall << ' ' << calls[nAt - 1].sPath;
            for (const auto& [sPath, sContent] : Restorable()) {
                EXPECT_EQ(sContent, kText) << each.first << ", at " << calls[nAt - 1].sCall;
            }
        }
    }
}

TEST_F(LastCopy, IsComparedUntouchedWhereThereIsNoLease)
{
    for (const std::string& sPath : {sGoes, sStays}) {
        int nReads = 0;
        bool bActed = false;
        Delete([&](const support::tCall& call, std::size_t) {
            // By the second read of the copy, the bytes of both are known.
            nReads += call.sCall == "pread64" && call.sPath == sStays;
            bActed = bActed || (nReads == 2 && WriteUnseen(sPath.c_str()));
            return call.sCall == "fcntl" ? EACCES : 0;
        });
        EXPECT_TRUE(bActed && fs::exists(sGoes) && fs::exists(sStays)) << sPath;
    }
}

TEST_F(LastCopy, OutlivesEveryFault)
{
    for (std::size_t nAt = 1; nAt <= calls.size(); ++nAt) {
        for (const int nError : {EIO, EACCES, ENOENT, EINTR}) {
            const auto run = Delete([&](const auto&, std::size_t n) { return n == nAt ? nError : 0; });
            const bool bThere = fs::exists(sGoes);
            EXPECT_TRUE(IsLeft() && (bThere ? run.sSaid == "0" : Restorable().size() == 1U))
                << calls[nAt - 1].sCall << ' ' << calls[nAt - 1].sPath << ", error " << nError;
        }
    }
}

} // namespace
