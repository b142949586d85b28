// SPDX-License-Identifier: MIT
// Between any two calls of an operation a second program acts on the same files: nothing is lost, nothing
// else is touched, nothing is claimed that is not so.

#include "FileWorld.h"
#include "Operations.h"

#include <csignal>
#include <sys/mman.h>
#include <sys/prctl.h>
#include <sys/wait.h>

namespace {

using namespace fileops_test;
using support::FileWorld;
using support::tScenario;

/// Descriptors and a mapping that the other program has had since before the operation.
struct tHeld {
    int h = -1;
    char* pMapped = nullptr;
};

/// The other program. Each of its acts is false if there is nothing that it could be done to.
class Intruder
{
public:
    Intruder(FileWorld& world, tHeld& open)
        : w(world), held(open), sSource(w.sFrom + "/a"), sTarget(w.sTo + "/a")
    {
    }

    /// A new file takes the name, as programs save without a backup.
    bool Put(const std::string& sPath, const std::string& sText) const
    {
        Destroyed(sPath);
        const std::string sNew = fs::path(sPath).parent_path() / "new";
        return Make(sNew, FileWorld::Content(sText)) && ::rename(sNew.c_str(), sPath.c_str()) == 0;
    }
    bool Make(const std::string& sPath, const std::string& sContent) const
    {
        const int h = open(sPath.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0600);
        const bool bMade = h >= 0 && write(h, sContent.data(), sContent.size()) > 0;
        if (bMade) {
            Created(sContent);
        }
        close(h);
        return bMade;
    }
    bool Rename(const std::string& sFrom, const std::string& sTo) const
    {
        return renameat2(AT_FDCWD, sFrom.c_str(), AT_FDCWD, sTo.c_str(), RENAME_NOREPLACE) == 0;
    }
    bool Aside(const std::string& sPath) const { return Rename(sPath, sPath + ".moved"); }
    bool Remove(const std::string& sPath) const
    {
        Destroyed(sPath);
        return ::unlink(sPath.c_str()) == 0;
    }
    bool Link(const std::string& sFrom, const std::string& sTo) const
    {
        return link(sFrom.c_str(), sTo.c_str()) == 0;
    }
    bool Symlink(const std::string& sFrom, const std::string& sTo) const
    {
        return symlink(sFrom.c_str(), sTo.c_str()) == 0;
    }
    /// Writes into the file as it stands; waits for nobody.
    bool Edit(const std::string& sPath, const std::string& sText, bool bAppend = false) const
    {
        const int h = open(sPath.c_str(), O_RDWR | O_NONBLOCK | O_NOFOLLOW | O_CLOEXEC);
        const bool bEdited = h >= 0 && EditOpen(h, sText, bAppend);
        close(h);
        return bEdited;
    }
    bool EditOpen(int h, const std::string& sText, bool bAppend = false) const
    {
        const std::string sBefore = ContentOf(h);
        w.required.erase(sBefore);
        const std::string sContent = bAppend ? sBefore + sText : FileWorld::Content(sText);
        Created(sContent);
        return pwrite(h, sContent.data(), sContent.size(), 0) > 0;
    }
    /// Every file of folder `sFolder`.
    template <class Act>
    bool Each(const std::string& sFolder, const Act& act) const
    {
        bool bAny = false;
        std::error_code error;
        for (const auto& each : fs::directory_iterator(sFolder, error)) {
            bAny = act(each.path().string()) || bAny;
        }
        return bAny;
    }
    /// By hand, as file managers do.
    bool Trash(const std::string& sPath) const
    {
        const std::string sName = fs::path(sPath).filename();
        fs::create_directories(w.sTrash + "/files");
        fs::create_directories(w.sTrash + "/info");
        std::ofstream(w.sTrash + "/info/" + sName + ".trashinfo")
            << "[Trash Info]\nPath=" << sPath << "\nDeletionDate=2026-01-01T00:00:00\n";
        return Rename(sPath, w.sTrash + "/files/" + sName) ||
               (::unlink((w.sTrash + "/info/" + sName + ".trashinfo").c_str()), false);
    }
    /// What lies in the trash already is the other program's to spoil.
    bool Notes(const std::function<bool(const std::string&)>& spoil) const
    {
        for (const auto& each : w.Find()) {
            if (each.sPath.starts_with(w.sTrash)) {
                w.required.erase(each.sContent);
            }
        }
        return Each(w.sTrash + "/info", spoil);
    }
    bool Folder(const std::string& sPath) const { return mkdir(sPath.c_str(), 0700) == 0; }

    FileWorld& w;
    tHeld& held;
    std::string sSource;
    std::string sTarget;

private:
    static std::string ContentOf(int h)
    {
        std::string sContent(20'000, '\0');
        const ssize_t n = pread(h, sContent.data(), sContent.size(), 0);
        sContent.resize(n > 0 ? static_cast<std::size_t>(n) : 0);
        return sContent;
    }
    void Destroyed(const std::string& sPath) const
    {
        if (!fs::is_symlink(sPath) && fs::is_regular_file(sPath)) {
            w.required.erase(Content(sPath));
        }
    }
    void Created(const std::string& sContent) const
    {
        w.required.insert(sContent);
        w.known.insert(sContent);
    }
};

enum class Side { Source, Target, Trash };

struct tInterference {
    const char* pName;
    Side side;
    std::function<bool(const Intruder& i)> act;
    bool bOpenBefore = false; ///< through what the other program has had open since before the operation
};

const std::vector<tInterference> kInterferences{
    {"replaces the source", Side::Source, [](auto& i) { return i.Put(i.sSource, "theirs a"); }},
    {"saves the source, keeping a backup", Side::Source,
     [](auto& i) { return i.Rename(i.sSource, i.sSource + '~') && i.Put(i.sSource, "theirs a"); }},
    {"renames the source", Side::Source, [](auto& i) { return i.Aside(i.sSource); }},
    {"removes the source", Side::Source, [](auto& i) { return i.Remove(i.sSource); }},
    {"gives the source's name to a symbolic link", Side::Source,
     [](auto& i) { return i.Aside(i.sSource) && i.Symlink(i.w.sPrivate + "/a", i.sSource); }},
    {"gives the source's name to another file's second one", Side::Source,
     [](auto& i) { return i.Aside(i.sSource) && i.Link(i.w.sFrom + "/c", i.sSource); }},
    {"gives the source's name to a FIFO", Side::Source,
     [](auto& i) { return i.Aside(i.sSource) && mkfifo(i.sSource.c_str(), 0600) == 0; }},
    {"gives the source's name to a folder", Side::Source,
     [](auto& i) { return i.Aside(i.sSource) && i.Folder(i.sSource); }},
    {"gives the source a second name", Side::Source,
     [](auto& i) { return i.Link(i.sSource, i.sSource + ".second"); }},
    {"puts a file where the source was", Side::Source,
     [](auto& i) { return i.Make(i.sSource, FileWorld::Content("theirs a")); }},
    {"grows the source", Side::Source, [](auto& i) { return i.Edit(i.sSource, "more$", true); }},
    {"truncates the source", Side::Source,
     [](auto& i) { return i.Edit(i.sSource, "mine cut a") && truncate(i.sSource.c_str(), 5000) == 0; }},
    {"writes to the source and sets its time back", Side::Source,
     [](auto& i) {
         const auto status = StatusOf(i.sSource);
         const timespec times[] = {status.st_atim, status.st_mtim};
         usleep(5000); // until the system's clock has moved on
         return i.Edit(i.sSource, "mine edited a") && utimensat(AT_FDCWD, i.sSource.c_str(), times, 0) == 0;
     }},
    {"writes through a descriptor", Side::Source,
     [](auto& i) { return i.EditOpen(i.held.h, "mine written a"); }, true},
    {"writes through a mapping", Side::Source,
     [](auto& i) {
         std::string sText = FileWorld::Content("mine mapped a");
         i.w.required.erase(FileWorld::Content("mine a"));
         i.w.required.insert(sText);
         i.w.known.insert(sText);
         sText.copy(i.held.pMapped, sText.size());
         return true;
     },
     true},
    {"opens the source for writing and writes at the end", Side::Source,
     [](auto& i) {
         i.held.h = open(i.sSource.c_str(), O_RDWR | O_NONBLOCK | O_NOFOLLOW | O_CLOEXEC);
         return i.held.h >= 0;
     }},
    {"swaps the source's folder for a link", Side::Source,
     [](auto& i) { return i.Aside(i.w.sFrom) && i.Symlink(i.w.sPrivate, i.w.sFrom); }},
    {"swaps the source's folder for another", Side::Source,
     [](auto& i) {
         return i.Aside(i.w.sFrom) && i.Folder(i.w.sFrom) && i.Put(i.sSource, "theirs a") &&
                i.Put(i.w.sFrom + "/b", "theirs b");
     }},
    {"renames the source's folder", Side::Source, [](auto& i) { return i.Aside(i.w.sFrom); }},
    {"trashes the source's folder", Side::Source, [](auto& i) { return i.Trash(i.w.sFrom); }},

    {"renames the destination", Side::Target, [](auto& i) { return i.Aside(i.w.sTo); }},
    {"trashes the destination", Side::Target, [](auto& i) { return i.Trash(i.w.sTo); }},
    {"swaps the destination for a link", Side::Target,
     [](auto& i) { return i.Aside(i.w.sTo) && i.Symlink(i.w.sPrivate, i.w.sTo); }},
    {"swaps the destination for another folder", Side::Target,
     [](auto& i) { return i.Aside(i.w.sTo) && i.Folder(i.w.sTo); }},
    {"removes the destination", Side::Target, [](auto& i) { return rmdir(i.w.sTo.c_str()) == 0; }},
    {"saves a file under the final name", Side::Target, [](auto& i) { return i.Put(i.sTarget, "other a"); }},
    {"makes a file of the final name", Side::Target,
     [](auto& i) { return i.Make(i.sTarget, FileWorld::Content("other a")); }},
    {"makes a folder of the final name", Side::Target, [](auto& i) { return i.Folder(i.sTarget); }},
    {"makes a link of the final name", Side::Target,
     [](auto& i) { return i.Symlink(i.w.sPrivate + "/a", i.sTarget); }},
    {"edits the file of the final name", Side::Target,
     [](auto& i) { return i.Edit(i.sTarget, "more$", true); }},
    {"renames the file of the final name", Side::Target, [](auto& i) { return i.Aside(i.sTarget); }},
    {"removes the file of the final name", Side::Target, [](auto& i) { return i.Remove(i.sTarget); }},

    {"removes the notes", Side::Trash,
     [](auto& i) { return i.Notes([&](auto& sNote) { return i.Remove(sNote); }); }},
    {"forges the notes", Side::Trash,
     [](auto& i) {
         return i.Notes([](auto& sNote) {
             return !!(std::ofstream(sNote)
                       << "[Trash Info]\nPath=/etc/a\nDeletionDate=2026-01-01T00:00:00\n");
         });
     }},
    {"makes FIFOs of the notes", Side::Trash,
     [](auto& i) { return i.Notes([&](auto& s) { return i.Remove(s) && mkfifo(s.c_str(), 0600) == 0; }); }},
    {"makes the notes endless", Side::Trash,
     [](auto& i) { return i.Notes([](auto& s) { return truncate(s.c_str(), 200'000'000'000) == 0; }); }},
    {"takes the next names in the trash", Side::Trash,
     [](auto& i) {
         fs::create_directories(i.w.sTrash + "/files");
         return i.Make(i.w.sTrash + "/files/a", FileWorld::Content("stray"));
     }},
    {"makes a link of the trash's files", Side::Trash,
     [](auto& i) {
         const std::string sFiles = i.w.sTrash + "/files";
         return i.Notes([](auto&) { return true; }) && i.Aside(sFiles) && i.Symlink(i.w.sPrivate, sFiles);
     }},
    {"makes a link of the trash's notes", Side::Trash,
     [](auto& i) {
         const std::string sInfo = i.w.sTrash + "/info";
         return i.Notes([](auto&) { return true; }) && i.Aside(sInfo) && i.Symlink(i.w.sPrivate, sInfo);
     }},
    {"renames the trash", Side::Trash, [](auto& i) { return i.Aside(i.w.sTrash); }},
    {"restores from the trash", Side::Trash,
     [](auto& i) {
         return i.Rename(i.w.sTrash + "/files/a", i.sSource) && i.Remove(i.w.sTrash + "/info/a.trashinfo");
     }},
    {"empties the trash", Side::Trash,
     [](auto& i) {
         const auto remove = [&](const auto& sPath) { return i.Remove(sPath); };
         return i.Each(i.w.sTrash + "/files", remove) && i.Each(i.w.sTrash + "/info", remove);
     }},
};

const tScenario kScenarios[] = {
    {"delete", platform::FO_DELETE},
    {"move", platform::FO_MOVE},
    {"move replacing", platform::FO_MOVE, false, false, true},
    {"move to another volume", platform::FO_MOVE, false, true},
    {"move from another volume, replacing", platform::FO_MOVE, true, false, true},
    {"move to another volume, plainly", platform::FO_MOVE, false, true, false, true},
    {"copy", platform::FO_COPY, false, true},
    {"copy replacing", platform::FO_COPY, false, false, true},
};

class Interference : public ::testing::TestWithParam<tScenario>
{
protected:
    /// The operation with `each` at call `nAt`; what is wrong afterwards. `bActed` tells whether it could be
    /// done.
    std::string Try(const tInterference& each, std::size_t nAt, bool& bActed, std::string& sCall)
    {
        world.Prepare(GetParam());
        tHeld held;
        const Intruder intruder(world, held);
        if (each.bOpenBefore) {
            held.h = open(intruder.sSource.c_str(), O_RDWR | O_CLOEXEC);
            void* p = mmap(nullptr, 5000, PROT_READ | PROT_WRITE, MAP_SHARED, held.h, 0);
            held.pMapped = static_cast<char*>(p);
            held.pMapped[4998] = '.'; // it is dirty from now on
        }
        const auto noteWhatIsDone = [&] {
            for (const std::string& sName : world.Names()) {
                if (world.IsDone(sName)) {
                    world.doneAnyway.insert(sName);
                }
            }
        };
        bool bDue = true;
        bActed = false;
        world.bSeen = false;
        const auto run = world.Run([&](const support::tCall& call, std::size_t n) {
            if (n >= nAt && bDue) {
                noteWhatIsDone();
                sCall = call.sCall + ' ' + call.sPath;
                errno = 0;
                bActed = each.act(intruder);
                bDue = !bActed && errno == EWOULDBLOCK; // somebody holds it: again at the next call
                noteWhatIsDone();
            }
            world.bSeen = world.bSeen || (bDue && call.sPath == intruder.sSource);
            return 0;
        });
        if (!each.bOpenBefore && held.h >= 0) {
            intruder.EditOpen(held.h, "mine late a");
        }
        std::string sWrong = world.Wrong(run) + (each.side == Side::Trash ? "" : world.LeftBehind());
        if (held.pMapped != nullptr) {
            munmap(held.pMapped, 5000);
        }
        close(held.h);
        return sWrong;
    }

    TempTree tree{Home()};
    TempTree other{OtherVolume()};
    FileWorld world{tree.sRoot, other.sRoot, HomeTrash()};
};

TEST_P(Interference, LosesNothingAndClaimsNothing)
{
    world.Prepare(GetParam());
    const auto undisturbed = world.Run([](const auto&, std::size_t) { return 0; });
    if (!undisturbed.process.bPossible) {
        GTEST_SKIP() << "nobody may watch a process here";
    }
    ASSERT_EQ(world.Wrong(undisturbed) + world.LeftBehind(), "");
    ASSERT_EQ(undisturbed.outcome.nFilesDone, world.Names().size());
    std::size_t nRuns = 0;
    for (const tInterference& each : kInterferences) {
        if ((each.side == Side::Target && GetParam().wFunc == platform::FO_DELETE) ||
            (each.side == Side::Trash && GetParam().wFunc != platform::FO_DELETE && !GetParam().bReplace)) {
            continue;
        }
        std::size_t nWrong = 0;
        std::string sFirst;
        for (std::size_t n = 1; n <= undisturbed.process.calls.size(); ++n) {
            bool bActed = false;
            std::string sCall;
            const std::string sWrong = Try(each, n, bActed, sCall);
            nRuns += bActed ? 1U : 0U;
            if (sWrong.find("hangs") != sWrong.npos) {
                n = undisturbed.process.calls.size(); // once is enough to wait for
            }
            if (!sWrong.empty() && nWrong++ == 0) {
                sFirst = "call " + std::to_string(n) + " (" + sCall + "): " + sWrong;
            }
        }
        EXPECT_EQ(nWrong, 0U) << GetParam().pName << ", another program " << each.pName << ", first at "
                              << sFirst;
    }
    RecordProperty("runs", static_cast<int>(nRuns));
    std::cout << GetParam().pName << ": " << nRuns << " runs, " << undisturbed.process.calls.size()
              << " calls\n";
}

INSTANTIATE_TEST_SUITE_P(, Interference, ::testing::ValuesIn(kScenarios), support::NameOfScenario);

/// A folder of another user is swapped for a link to a private one all the time while its files are trashed.
TEST(TwoUsers, NeitherLosesNorTouchesAnything)
{
    if (geteuid() != 0) {
        GTEST_SKIP() << "needs root to be two users";
    }
    constexpr uid_t kVictim = 65534;
    constexpr uid_t kAttacker = 65533;
    constexpr std::size_t kFiles = 2000;
    const TempTree tree{Home()};
    const std::string sTheirs = tree.sRoot + "/theirs";
    const std::string sShared = sTheirs + "/shared";
    const std::string sPrivate = tree.sRoot + "/private";
    fs::permissions(tree.sRoot, fs::perms(0755));
    fs::remove_all(Home() + "/share");
    std::vector<std::string> paths;
    for (std::size_t n = 0; n < kFiles; ++n) {
        const std::string sName = std::to_string(n);
        paths.push_back(tree.File("theirs/shared/" + sName, "shared " + sName));
        tree.File("private/" + sName, "private " + sName);
    }
    ASSERT_TRUE(Shell("cd " + tree.sRoot +
                      " && chown -R 65534 private theirs/shared && chown 65533 theirs theirs/shared" +
                      " && chmod 777 theirs/shared && chmod 700 private"));
    const pid_t attacker = fork();
    if (attacker == 0) {
        prctl(PR_SET_PDEATHSIG, SIGKILL);
        const std::string sAside = sTheirs + "/aside";
        for (bool bReady = setuid(kAttacker) == 0; bReady;) {
            usleep(300);
            ::rename(sShared.c_str(), sAside.c_str());
            bReady = symlink(sPrivate.c_str(), sShared.c_str()) == 0;
            usleep(300);
            bReady = unlink(sShared.c_str()) == 0 && ::rename(sAside.c_str(), sShared.c_str()) == 0 && bReady;
        }
        _exit(1);
    }
    const auto process = support::Supervise(
        {},
        [&] {
            support::ScriptedOperations user;
            desktop::ShellFileOperations operations(user);
            const bool bVictim = setresgid(kVictim, kVictim, kVictim) == 0 && setuid(kVictim) == 0;
            operations.SHFileOperationA(support::Request(bVictim ? platform::FO_DELETE : 0, paths));
            return std::to_string(user.outcome.nFilesDone) + ' ' +
                   std::to_string(user.outcome.notDone.size());
        },
        {});
    kill(attacker, SIGKILL);
    waitpid(attacker, nullptr, 0);
    const Bin bin = Restorable();
    std::size_t nLost = 0;
    std::size_t nTouched = 0;
    for (std::size_t n = 0; n < kFiles; ++n) {
        const std::string sName = std::to_string(n);
        const bool bThere =
            Content(sShared + '/' + sName) + Content(sTheirs + "/aside/" + sName) == "shared " + sName;
        nLost += bThere || bin.contains({paths[n], "shared " + sName}) ? 0U : 1U;
        nTouched += Content(sPrivate + '/' + sName) == "private " + sName ? 0U : 1U;
    }
    std::cout << "two users: done and not done " << process.sSaid << ", in the trash " << bin.size()
              << ", lost " << nLost << ", touched " << nTouched << '\n';
    EXPECT_EQ(nLost + nTouched, 0U);
    EXPECT_EQ(process.sSaid, std::to_string(bin.size()) + ' ' + std::to_string(kFiles - bin.size()));
}

} // namespace
