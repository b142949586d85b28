// Each call that changes files fails once with each error that it can give, the user cancels at it, or the
// program dies at it: nothing is lost, nothing half-written bears a name, nothing is claimed that is not so.

#include "FileFaults.h"
#include "ScriptedOperations.h"
#include "TempTree.h"
#include "TrashBin.h"

#include <sys/stat.h>
#include <sys/wait.h>
#include <sys/xattr.h>
#include <unistd.h>

namespace {

namespace faults = support::faults;
namespace fs = std::filesystem;

struct tScenario {
    const char* pName;
    unsigned wFunc;
    bool bFromOtherVolume = false;
    bool bToOtherVolume = false;
    bool bReplace = false;
    bool bPlainRenameOnly = false;
};

const tScenario kScenarios[] = {
    {"trash", platform::FO_DELETE},
    {"move", platform::FO_MOVE, false, false, true},
    {"move without safe rename", platform::FO_MOVE, false, false, true, true},
    {"move to the trash's volume", platform::FO_MOVE, true, false, true},
    {"move to the trash's volume without safe rename", platform::FO_MOVE, true, false, true, true},
    {"move to a volume without trash", platform::FO_MOVE, false, true, true},
    {"copy", platform::FO_COPY, false, false, true},
    {"copy without safe rename", platform::FO_COPY, false, false, true, true},
    {"copy to a volume without trash", platform::FO_COPY, false, true},
};

constexpr const char* kNames[] = {"a", "b", "c"};

/// The files of one run, and the verdict on what became of them.
class World
{
public:
    explicit World(const tScenario& scenario) : m_scenario(scenario)
    {
        sFrom = (scenario.bFromOtherVolume ? m_other.sRoot : m_home.sRoot) + "/from";
        sTo = (scenario.bToOtherVolume ? m_other.sRoot : m_home.sRoot) + "/to";
    }

    void Prepare()
    {
        for (const std::string& sFolder : {sFrom, sTo, std::string(std::getenv("XDG_DATA_HOME"))}) {
            fs::remove_all(sFolder);
        }
        fs::create_directories(sTo);
        for (const std::string sName : kNames) {
            m_new[sName] = std::string(5000, sName[0]);
            const std::string sPath = m_home.sRoot + '/' + sName;
            std::ofstream(sPath) << m_new[sName];
            setxattr(sPath.c_str(), "user.note", "x", 1, 0);
            fs::create_directories(sFrom);
            fs::copy_file(sPath, sFrom + '/' + sName);
            setxattr((sFrom + '/' + sName).c_str(), "user.note", "x", 1, 0);
        }
        if (m_scenario.bReplace) {
            std::ofstream(sTo + "/b") << m_sOld;
        }
    }

    /// The request of the scenario; what the user was shown.
    support::ScriptedOperations Run() const
    {
        support::ScriptedOperations user;
        user.answer = {support::Choice::Replace, true};
        user.onProgress = [](const auto&) { return !faults::Cancelled(); };
        desktop::ShellFileOperations operations(user);
        const bool bTrash = m_scenario.wFunc == platform::FO_DELETE;
        EXPECT_EQ(operations.SHFileOperationA(support::Request(
                      m_scenario.wFunc, {sFrom + "/a", sFrom + "/b", sFrom + "/c"}, bTrash ? "" : sTo)),
                  0);
        return user;
    }

    /// What is wrong whatever has happened; empty if nothing.
    std::string Lost() const
    {
        std::string sWrong;
        const auto from = support::Contents(sFrom);
        const auto to = support::Contents(sTo);
        const auto bin = support::Restorable(support::HomeTrash());
        const auto at = [](const auto& files, const std::string& sName, const std::string& sContent) {
            return files.contains(sName) && files.at(sName) == sContent;
        };
        for (const auto& [sName, sContent] : m_new) {
            if (!at(from, sName, sContent) && !at(to, sName, sContent) &&
                !bin.contains({sFrom + '/' + sName, sContent})) {
                sWrong += "lost " + sName + "; ";
            }
        }
        if (m_scenario.bReplace && !at(to, "b", m_sOld) && !bin.contains({sTo + "/b", m_sOld})) {
            sWrong += "lost the replaced b; ";
        }
        for (const auto& files : {from, to, support::Contents(support::HomeTrash() + "/files")}) {
            for (const auto& [sName, sContent] : files) {
                const bool bWhole =
                    sContent == m_sOld || (m_new.contains(sName) && m_new.at(sName) == sContent);
                if (!bWhole && !sName.starts_with(".tallyfen-")) {
                    sWrong += "partial " + sName + "; ";
                }
            }
        }
        return sWrong;
    }

    /// What is wrong after an operation that came to its end; empty if nothing.
    std::string Untidy(const desktop::tOperationOutcome& outcome, bool bFaultStays) const
    {
        std::string sWrong;
        const auto from = support::Contents(sFrom);
        const auto to = support::Contents(sTo);
        const auto bin = support::Restorable(support::HomeTrash());
        const auto reasons = support::Reasons(outcome);
        std::size_t nDone = 0;
        for (const auto& [sName, sContent] : m_new) {
            const bool bHere = from.contains(sName);
            const bool bThere = to.contains(sName) && to.at(sName) == sContent;
            const bool bDone = m_scenario.wFunc == platform::FO_DELETE
                                   ? !bHere && bin.contains({sFrom + '/' + sName, sContent})
                               : m_scenario.wFunc == platform::FO_MOVE ? !bHere && bThere
                                                                       : bHere && bThere;
            nDone += bDone ? 1U : 0U;
            // Twice denied the way back, a copy may stand there though it could not be finished properly.
            if (!outcome.bCancelled && (bDone == reasons.contains(sName)) && !(bDone && bFaultStays)) {
                sWrong += sName + (bDone ? " done but denied; " : " not done and not named; ");
            }
        }
        for (const auto& [sName, sReason] : reasons) {
            if (sReason.size() < 10 || !sReason.ends_with('.') || sReason.find('/') != std::string::npos) {
                sWrong += "no sentence: " + sReason + "; ";
            }
        }
        if (outcome.nFilesDone > nDone || (outcome.nFilesDone < nDone && !bFaultStays)) {
            sWrong += "claims " + std::to_string(outcome.nFilesDone) + " of " + std::to_string(nDone) + "; ";
        }
        const bool bToldOfOld =
            reasons.contains("b") && reasons.at("b").find("is in the trash.") != std::string::npos;
        if (m_scenario.bReplace && !to.contains("b") && !bToldOfOld) {
            sWrong += "the old b did not come back; ";
        }
        bool bToldOfLeft = bFaultStays;
        for (const auto& [sName, sReason] : reasons) {
            bToldOfLeft = bToldOfLeft || sReason.find("unfinished copy is left") != std::string::npos;
        }
        for (const auto& files : {from, to}) {
            const auto left = files.lower_bound(".tallyfen-");
            if (!bToldOfLeft && left != files.end() && left->first.starts_with(".tallyfen-")) {
                sWrong += "leftover " + left->first + "; ";
            }
        }
        return sWrong;
    }

    std::string sFrom;
    std::string sTo;

private:
    const tScenario& m_scenario;
    support::TempTree m_home{support::Home()};
    support::TempTree m_other;
    std::map<std::string, std::string> m_new;
    std::string m_sOld = "the old one";
};

/// One run in which call `sCall` fails or the program dies at it; what is wrong afterwards.
std::string RunWith(World& world, const faults::tSettings& settings, const std::string& sCall)
{
    world.Prepare();
    if (settings.fault.nError != faults::kKill) {
        faults::Arm(settings);
        const auto user = world.Run();
        faults::Disarm();
        // Nothing shows afterwards that a file has not reached the disk.
        const int nError = settings.fault.nError;
        const bool bUnsynced =
            sCall == "fsync" && nError > 0 && nError != EINTR && user.outcome.notDone.empty();
        return world.Lost() + world.Untidy(user.outcome, settings.fault.bStays) +
               (bUnsynced ? "not synced and not named; " : "");
    }
    const pid_t child = fork();
    if (child == 0) {
        faults::Arm(settings);
        world.Run();
        _exit(0);
    }
    int nStatus = 0;
    waitpid(child, &nStatus, 0);
    const bool bKilled = WIFEXITED(nStatus) && WEXITSTATUS(nStatus) == faults::kKilled;
    return (bKilled ? "" : "the program did not get there; ") + world.Lost();
}

TEST(FaultSweep, LosesNothingAndClaimsNothing)
{
    struct stat home {
    };
    struct stat other {
    };
    if (stat(fs::temp_directory_path().c_str(), &other) != 0 || stat(support::Home().c_str(), &home) != 0 ||
        home.st_dev == other.st_dev) {
        GTEST_SKIP() << "the home of the tests is on the temporary folder's volume";
    }
    std::size_t nRuns = 0;
    for (const tScenario& scenario : kScenarios) {
        World world(scenario);
        const faults::tSettings clean{{}, scenario.bPlainRenameOnly, false, {}};
        world.Prepare();
        faults::Arm(clean);
        const auto user = world.Run();
        const auto changes = faults::Disarm();
        ASSERT_EQ(world.Lost() + world.Untidy(user.outcome, false), "") << scenario.pName;
        ASSERT_EQ(user.outcome.nFilesDone, scenario.bToOtherVolume && scenario.bReplace ? 2U : 3U)
            << scenario.pName << ": " << ::testing::PrintToString(support::Reasons(user.outcome));
        const std::size_t nBefore = nRuns;
        for (std::size_t n = 1; n <= changes.size(); ++n) {
            std::vector<faults::tFault> all{
                {n, faults::kKill}, {n, faults::kCancel}, {n, ENOSPC, true}, {n, EIO, true}};
            for (const int nError : faults::FaultsOf(changes[n - 1].sCall)) {
                all.push_back({n, nError});
            }
            for (const auto& fault : all) {
                faults::tSettings settings = clean;
                settings.fault = fault;
                EXPECT_EQ(RunWith(world, settings, changes[n - 1].sCall), "")
                    << scenario.pName << ", call " << n << " (" << changes[n - 1].sCall << ' '
                    << changes[n - 1].sName << "), error " << fault.nError
                    << (fault.bStays ? " from then on" : "");
                ++nRuns;
            }
        }
        std::cout << scenario.pName << ": " << changes.size() << " changes, " << nRuns - nBefore << " runs\n";
    }
    std::cout << nRuns << " runs with a fault\n";
    EXPECT_GE(nRuns, 500U);
}

} // namespace
