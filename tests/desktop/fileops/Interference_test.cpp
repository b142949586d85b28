// SPDX-License-Identifier: MIT
// Between any two calls of an operation a second program acts on the same files: nothing is lost, nothing
// else is touched, nothing is claimed that is not so.

#include "Operations.h"

#include <algorithm>
#include <fcntl.h>
#include <sys/mman.h>
#include <sys/wait.h>
#include <unistd.h>

namespace {

using namespace fileops_test;
using support::FileWorld;

constexpr std::size_t kSize = 5000;

/// Where files are mapped: a place of its own, so that no sanitizer remembers what lay there before.
char* const g_pMapped =
    static_cast<char*>(mmap(nullptr, kSize, PROT_NONE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0));

/// Maps a file in place of the one before it; -1 for none.
bool Map(int h)
{
    const int nProtection = h < 0 ? PROT_NONE : PROT_READ | PROT_WRITE;
    const int nFlags = h < 0 ? MAP_PRIVATE | MAP_ANONYMOUS : MAP_SHARED;
    return mmap(g_pMapped, kSize, nProtection, nFlags | MAP_FIXED, h, 0) == g_pMapped;
}

/// The other program: what it knows to do, and what it has open.
class Intruder
{
public:
    explicit Intruder(FileWorld& world) : m_world(world) {}
    Intruder& operator=(Intruder&&) = delete;
    ~Intruder()
    {
        Map(-1);
        close(m_h);
    }

    /// Carries out commands such as "mv from/a from/b; put from/a text" until one fails: false if the last
    /// did. A text stands for a content, its last word being the file's name; an underscore is a space.
    bool Do(const std::string& sCommands)
    {
        std::istringstream commands(sCommands);
        bool bDone = true;
        for (std::string sCommand; bDone && std::getline(commands >> std::ws, sCommand, ';');) {
            std::istringstream words(sCommand);
            std::string sName, sPath, sSecond;
            words >> sName >> sPath >> sSecond;
            std::replace(sSecond.begin(), sSecond.end(), '_', ' ');
            bDone = m_commands.at(sName)(Path(sPath), sSecond);
        }
        return bDone;
    }

    void WriteIfOpen(const std::string& sText)
    {
        if (m_h >= 0) {
            Edit(m_h, sText);
        }
    }

private:
    using Command = std::function<bool(const std::string& sPath, const std::string& sSecond)>;

    std::string Path(const std::string& sPath) const
    {
        const std::size_t nName = std::min(sPath.find_first_of("./"), sPath.size());
        const auto place = m_places.find(sPath.substr(0, nName));
        return place == m_places.end() ? sPath : place->second + sPath.substr(nName);
    }
    /// Nobody is to answer for it any more.
    void Forget(const std::string& sPath)
    {
        if (!fs::is_symlink(sPath) && fs::is_regular_file(sPath)) {
            m_world.required.erase(Content(sPath));
        }
    }
    bool Make(const std::string& sPath, const std::string& sText)
    {
        const int h = open(sPath.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0600);
        const bool bMade = h >= 0 && pwrite(h, m_world.Know(FileWorld::Content(sText)).data(), kSize, 0) > 0;
        close(h);
        return bMade;
    }
    bool Rename(const std::string& sFrom, const std::string& sTo)
    {
        return renameat2(AT_FDCWD, sFrom.c_str(), AT_FDCWD, sTo.c_str(), RENAME_NOREPLACE) == 0;
    }
    bool Edit(int h, const std::string& sText)
    {
        std::string sBefore(4 * kSize, '\0');
        sBefore.resize(
            static_cast<std::size_t>(std::max<ssize_t>(0, pread(h, sBefore.data(), sBefore.size(), 0))));
        m_world.required.erase(sBefore);
        const auto& sContent = m_world.Know(sText.empty() ? sBefore + "more$" : FileWorld::Content(sText));
        return pwrite(h, sContent.data(), sContent.size(), 0) > 0;
    }
    /// As file managers do.
    bool Trash(const std::string& sPath)
    {
        const std::string sName = '/' + fs::path(sPath).filename().string();
        const std::string sNote = m_world.sTrash + "/info" + sName + ".trashinfo";
        fs::create_directories(m_world.sTrash + "/files");
        fs::create_directories(m_world.sTrash + "/info");
        std::ofstream(sNote) << "[Trash Info]\nPath=" << sPath << "\nDeletionDate=2026-01-01T00:00:00\n";
        return Rename(sPath, m_world.sTrash + "/files" + sName) || (::unlink(sNote.c_str()), false);
    }

    FileWorld& m_world;
    const std::map<std::string, std::string> m_places{{"from", m_world.sFrom},
                                                      {"to", m_world.sTo},
                                                      {"private", m_world.sPrivate},
                                                      {"trash", m_world.sTrash}};
    int m_h = -1;
    const std::map<std::string, Command> m_commands{
        {"mv", [&](auto& sPath, auto& sTo) { return Rename(sPath, Path(sTo)); }},
        {"make", [&](auto& sPath, auto& sText) { return Make(sPath, sText); }},
        {"put", // as programs save
         [&](auto& sPath, auto& sText) {
             Forget(sPath);
             const std::string sNew = fs::path(sPath).parent_path() / "new";
             return Make(sNew, sText) && ::rename(sNew.c_str(), sPath.c_str()) == 0;
         }},
        {"rm",
         [&](auto& sPath, auto&) {
             Forget(sPath);
             return ::remove(sPath.c_str()) == 0;
         }},
        {"ln", [&](auto& sPath, auto& sTo) { return link(sPath.c_str(), Path(sTo).c_str()) == 0; }},
        {"symlink", [&](auto& sPath, auto& sTo) { return symlink(sPath.c_str(), Path(sTo).c_str()) == 0; }},
        {"mkdir", [&](auto& sPath, auto&) { return mkdir(sPath.c_str(), 0700) == 0; }},
        {"mkfifo",
         [&](auto& sPath, auto&) {
             ::unlink(sPath.c_str());
             return mkfifo(sPath.c_str(), 0600) == 0;
         }},
        {"endless", [&](auto& sPath, auto&) { return truncate(sPath.c_str(), 200'000'000'000) == 0; }},
        {"trash", [&](auto& sPath, auto&) { return Trash(sPath); }},
        {"forge",
         [&](auto& sPath, auto&) {
             return !!(std::ofstream(sPath)
                       << "[Trash Info]\nPath=/etc/a\nDeletionDate=2026-01-01T00:00:00\n");
         }},
        {"open", // waits for nobody
         [&](auto& sPath, auto&) {
             return (m_h = open(sPath.c_str(), O_RDWR | O_NONBLOCK | O_NOFOLLOW | O_CLOEXEC)) >= 0;
         }},
        {"write", [&](auto&, auto& sText) { return Edit(m_h, sText); }},
        {"close", [&](auto&, auto&) { return close(std::exchange(m_h, -1)) == 0; }},
        {"map",
         [&](auto&, auto&) {
             Map(m_h);
             g_pMapped[kSize - 2] = '.'; // it is dirty from now on
             return true;
         }},
        {"poke",
         [&](auto&, auto& sText) {
             m_world.required.erase(FileWorld::Content("mine a"));
             return m_world.Know(FileWorld::Content(sText)).copy(g_pMapped, kSize) > 0;
         }},
        {"peek",
         [&](auto&, auto&) {
             Map(m_h);
             return g_pMapped[kSize - 1] == '$'; // by which some file systems miss what is written then
         }},
        {"unmap", [&](auto&, auto&) { return Map(-1); }},
        {"wait", [&](auto&, auto&) { return usleep(5000) == 0; }}, // until the system's clock has moved on
        {"redate", [&](auto& sPath, auto&) { return FileWorld::SetOldTime(sPath); }},
        {"each", // file of a folder
         [&](auto& sFolder, auto& sCommand) {
             bool bAny = false;
             std::error_code error;
             for (const auto& each : fs::directory_iterator(sFolder, error)) {
                 bAny = m_commands.at(sCommand)(each.path().string(), "") || bAny;
             }
             return bAny;
         }},
        {"spoil", // what lies in a folder already
         [&](auto& sFolder, auto&) {
             for (const auto& each : m_world.Find()) {
                 m_world.required.erase(each.sPath.starts_with(sFolder) ? each.sContent : "");
             }
             return fs::exists(sFolder);
         }}};
};

// Every call is disturbed; where each run takes ten times as long, every fourth.
#if defined(__SANITIZE_ADDRESS__)
constexpr std::size_t kStep = 4;
#else
constexpr std::size_t kStep = 1;
#endif

enum class Side { Source, Target, Trash };
using enum Side;

struct tInterference {
    const char* pName;
    Side side;
    const char* pCommands;
    const char* pBefore = ""; ///< what it does before the operation begins
};

constexpr const char* kRewritten =
    "open from/a; wait from/a; write from/a mine_edited_a; redate from/a; close from/a";

const tInterference kInterferences[] = {
    {"replaces the source", Source, "put from/a theirs_a"},
    {"saves the source, keeping a backup", Source, "mv from/a from/a~; put from/a theirs_a"},
    {"renames the source", Source, "mv from/a from/a.moved"},
    {"removes the source", Source, "rm from/a"},
    {"swaps the source for a link", Source, "mv from/a from/a.moved; symlink private/a from/a"},
    {"swaps the source for another file", Source, "mv from/a from/a.moved; ln from/c from/a"},
    {"swaps the source for a FIFO", Source, "mv from/a from/a.moved; mkfifo from/a"},
    {"swaps the source for a folder", Source, "mv from/a from/a.moved; mkdir from/a"},
    {"gives the source a second name", Source, "ln from/a from/a.second"},
    {"puts a file where the source was", Source, "make from/a theirs_a"},
    {"grows the source", Source, "open from/a; write from/a; close from/a"},
    {"rewrites the source", Source, "open from/a; write from/a mine_edited_a; close from/a"},
    {"rewrites the source and sets its time back", Source, kRewritten},
    {"writes through a descriptor", Source, "write from/a mine_written_a", "open from/a"},
    {"writes through a mapping", Source, "poke from/a mine_mapped_a", "open from/a; map from/a"},
    {"writes through a mapping that goes again", Source,
     "open from/a; peek from/a; poke from/a mine_mapped_a; unmap from/a; close from/a"},
    {"opens the source and writes at the end", Source, "open from/a"},
    {"swaps the source's folder for a link", Source, "mv from from.moved; symlink private from"},
    {"swaps the source's folder for another", Source,
     "mv from from.moved; mkdir from; put from/a theirs_a; put from/b theirs_b"},
    {"renames the source's folder", Source, "mv from from.moved"},
    {"trashes the source's folder", Source, "trash from"},
    {"renames the destination", Target, "mv to to.moved"},
    {"trashes the destination", Target, "trash to"},
    {"swaps the destination for a link", Target, "mv to to.moved; symlink private to"},
    {"swaps the destination for another folder", Target, "mv to to.moved; mkdir to"},
    {"removes the destination", Target, "rm to"},
    {"saves a file under the final name", Target, "put to/a other_a"},
    {"makes a file of the final name", Target, "make to/a other_a"},
    {"makes a folder of the final name", Target, "mkdir to/a"},
    {"makes a link of the final name", Target, "symlink private/a to/a"},
    {"edits the file of the final name", Target, "open to/a; write to/a; close to/a"},
    {"renames the file of the final name", Target, "mv to/a to/a.moved"},
    {"removes the file of the final name", Target, "rm to/a"},
    {"removes the notes", Trash, "spoil trash; each trash/info rm"},
    {"forges the notes", Trash, "spoil trash; each trash/info forge"},
    {"makes FIFOs of the notes", Trash, "spoil trash; each trash/info mkfifo"},
    {"makes the notes endless", Trash, "spoil trash; each trash/info endless"},
    {"takes the next name in the trash", Trash, "make trash/files/a stray"},
    {"makes a link of the trash's files", Trash,
     "spoil trash; mv trash/files trash/files.moved; symlink private trash/files"},
    {"makes a link of the trash's notes", Trash,
     "spoil trash; mv trash/info trash/info.moved; symlink private trash/info"},
    {"renames the trash", Trash, "mv trash trash.moved"},
    {"restores from the trash", Trash, "mv trash/files/a from/a; rm trash/info/a.trashinfo"},
    {"empties the trash", Trash, "each trash/files rm; each trash/info rm"},
};

class Interference : public WatchedEach
{
protected:
    /// The operation, disturbed at call `nAt`; what is wrong afterwards.
    std::string Try(const tInterference& each, std::size_t nAt)
    {
        world.Prepare(GetParam());
        world.bSeen = false;
        Intruder intruder(world);
        intruder.Do(each.pBefore);
        const auto noteWhatIsDone = [&] {
            for (const std::string& sName : world.Names()) {
                if (world.IsDone(sName)) {
                    world.doneAnyway.insert(sName);
                }
            }
        };
        bool bDue = true;
        const auto run = world.Run([&](const support::tCall& call, std::size_t n) {
            if (n >= nAt && bDue) {
                noteWhatIsDone();
                sCall = call.sCall + ' ' + call.sPath;
                errno = 0;
                bDue = !intruder.Do(each.pCommands) &&
                       errno == EWOULDBLOCK; // somebody holds it: again at the next call
                noteWhatIsDone();
            }
            world.bSeen = world.bSeen || (bDue && call.sPath == world.sFrom + "/a");
            return 0;
        });
        if (std::string_view(each.pBefore).empty()) {
            intruder.WriteIfOpen("mine late a");
        }
        return world.Wrong(run) + (each.side == Trash ? "" : world.LeftBehind());
    }

    std::string sCall; ///< the one before which somebody else acted
};

TEST_P(Interference, LosesNothingAndClaimsNothing)
{
    world.Prepare(GetParam());
    const auto undisturbed = world.Run([](const auto&, std::size_t) { return 0; });
    ASSERT_EQ(world.Wrong(undisturbed) + world.LeftBehind(), "");
    ASSERT_EQ(undisturbed.nDone, world.Names().size());
    const std::size_t nCalls = undisturbed.process.calls.size();
    for (const tInterference& each : kInterferences) {
        const bool bDelete = GetParam().wFunc == FO_DELETE;
        if (bDelete ? each.side == Target : each.side == Trash && !GetParam().bReplace) {
            continue;
        }
        std::size_t nWrong = 0;
        std::string sFirst;
        for (std::size_t n = 1; n <= nCalls; n += kStep) {
            const std::string sWrong = Try(each, n);
            if (!sWrong.empty() && nWrong++ == 0) {
                sFirst = "call " + std::to_string(n) + " (" + sCall + "): " + sWrong;
            }
            n = sWrong.find("hangs") != sWrong.npos ? nCalls : n; // once is enough to wait for
        }
        EXPECT_EQ(nWrong, 0U) << GetParam().pName << ", another program " << each.pName << ", first at "
                              << sFirst;
    }
}

/// Where the system tells of nobody who writes.
using Unleased = Watched;

TEST_F(Unleased, IsComparedWithItsCopyBeforeItGoes)
{
    for (const bool bWritten : {false, true}) {
        world.Prepare({"MoveToAnotherVolume", FO_MOVE, false, true});
        Intruder intruder(world);
        const auto run = world.Run([&](const support::tCall& call, std::size_t) {
            if (bWritten && call.sCall == "renameat2" &&
                call.sPath.starts_with(world.sFrom + "/.tallyfen-s-")) {
                intruder.Do(kRewritten);
            }
            return call.sCall == "fcntl" ? EACCES : 0;
        });
        EXPECT_EQ(world.Wrong(run) + world.LeftBehind(), "");
        EXPECT_EQ(run.nDone, bWritten ? 0U : 1U);
    }
}

using Late = Watched;

TEST_F(Late, WriterOfWhatIsSetAsideIsHeard)
{
    world.Prepare({"MoveToAnotherVolume", FO_MOVE, false, true});
    std::string sAside;
    bool bWaits = false;
    const auto run = world.Run([&](const support::tCall& call, std::size_t) {
        if (sAside.empty() && call.sPath.starts_with(world.sFrom + "/.tallyfen-s-")) {
            sAside = call.sPath;
        } else if (!sAside.empty() && !bWaits && call.sPath.starts_with(world.sTo)) {
            bWaits = true;
            const pid_t writer = fork();
            if (writer == 0) {
                const int h = open(sAside.c_str(), O_WRONLY | O_CLOEXEC);
                _exit(pwrite(h, "late", 4, 0) == 4 ? 0 : 1);
            }
            char state = 'R';
            while (state != 'S' && state != 'Z') { // until it waits, or has ended
                const std::string sStatus = Content("/proc/" + std::to_string(writer) + "/stat");
                state = sStatus.at(sStatus.rfind(')') + 2);
            }
        }
        return 0;
    });
    int nEnd = 1;
    wait(&nEnd);
    EXPECT_TRUE(bWaits && nEnd == 0);
    EXPECT_EQ(run.nDone, 0U);
    EXPECT_EQ(Content(world.sFrom + "/a").substr(0, 4), "late");
}

INSTANTIATE_TEST_SUITE_P(, Interference, ::testing::ValuesIn(kScenarios), NameOf);

} // namespace
