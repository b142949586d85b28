// Each call that changes files fails once with each error that it can give, the user cancels at it, or the
// program dies at it: nothing is lost, nothing half-written bears a name, nothing is claimed that is not so.

#include "Operations.h"

#include <algorithm>
#include <sys/wait.h>
#include <sys/xattr.h>

namespace {

using namespace fileops_test;

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
    {"copy to a volume without trash", platform::FO_COPY, false, true},
};

// In place of a system error number:
constexpr int kKill = -2;   // the process ends right there, with kKilled
constexpr int kCancel = -3; // the user cancels
constexpr int kKilled = 99;

struct tFault {
    std::size_t nAt = 0; ///< the call that fails, counted from 1; 0: none
    int nError = 0;
    bool bStays = false; ///< all later calls that this error is possible for fail as well
};

/// What can become of a call.
const std::vector<int>& ErrorsOf(std::string_view sCall)
{
    static const std::vector<int> naming{ENOSPC, EIO, EACCES, EPERM, ENOENT, EXDEV, EROFS, EINTR};
    static const std::vector<int> setting{ENOSPC, EIO, EPERM, EROFS, EOPNOTSUPP};
    static const std::vector<int> writing{ENOSPC, EIO,        EPERM, EXDEV,         EROFS,
                                          EFBIG,  EOPNOTSUPP, EINTR, faults::kShort};
    const auto isOneOf = [&](std::string_view sCalls) { return sCalls.find(sCall) != sCalls.npos; };
    return isOneOf("open mkdir unlink rename link") ? naming
           : isOneOf("chmod chown utime xattr")     ? setting
                                                    : writing;
}

constexpr const char* kNames[] = {"a", "b", "c"};
constexpr const char* kOld = "the old one";

std::string New(const std::string& sName)
{
    return std::string(5000, sName[0]);
}

/// The operations of a scenario, run after run.
class FaultSweep : public Operations
{
protected:
    /// One run with a fault; what is wrong afterwards, empty if nothing.
    std::string Try(const tFault& fault)
    {
        Prepare();
        if (fault.nError != kKill) {
            RunWith(fault);
            return Wrong(fault);
        }
        const pid_t child = fork();
        if (child == 0) {
            RunWith(fault);
            _exit(0);
        }
        int nStatus = 0;
        const bool bKilled =
            waitpid(child, &nStatus, 0) == child && WIFEXITED(nStatus) && WEXITSTATUS(nStatus) == kKilled;
        return (bKilled ? "" : "the program did not get there; ") + Wrong(fault);
    }

    tScenario scenario{};
    std::string sFrom;
    std::string sTo;
    std::vector<faults::tChange> changes; ///< of the last run

private:
    void Prepare() const
    {
        for (const std::string& sFolder : {sFrom, sTo, Home() + "/share"}) {
            fs::remove_all(sFolder);
        }
        fs::create_directories(sFrom);
        fs::create_directories(sTo);
        for (const std::string sName : kNames) {
            std::ofstream(sFrom + '/' + sName) << New(sName);
            setxattr((sFrom + '/' + sName).c_str(), "user.note", "x", 1, 0);
        }
        if (scenario.bReplace) {
            std::ofstream(sTo + "/b") << kOld;
        }
    }

    void RunWith(const tFault& fault)
    {
        bool bCancelled = false;
        user.answer = {Choice::Replace, true};
        user.onProgress = [&](const auto&) { return !bCancelled; };
        const auto judge = [&](const faults::tChange& change, std::size_t n) {
            const bool bNow = n == fault.nAt;
            if (bNow && fault.nError == kKill) {
                _exit(kKilled);
            }
            bCancelled = bCancelled || (bNow && fault.nError == kCancel);
            const auto& errors = ErrorsOf(change.sCall);
            const bool bCan = std::find(errors.begin(), errors.end(), fault.nError) != errors.end();
            return bCan && (bNow || (fault.bStays && n > fault.nAt)) ? fault.nError : 0;
        };
        faults::Arm(judge, scenario.bPlainRenameOnly);
        Run(scenario.wFunc, {sFrom + "/a", sFrom + "/b", sFrom + "/c"},
            scenario.wFunc == platform::FO_DELETE ? "" : sTo);
        changes = faults::Disarm();
    }

    /// What is wrong after an operation that came to its end, or that the program died in.
    std::string Wrong(const tFault& fault) const
    {
        std::string sWrong;
        const auto look = [&](bool bWrong, const std::string& sWhat) {
            sWrong += bWrong ? sWhat + "; " : "";
        };
        const auto from = Contents(sFrom);
        const auto to = Contents(sTo);
        const Bin bin = Restorable();
        const auto isThere = [&](const std::string& sName, const std::string& sContent) {
            return to.contains(sName) && to.at(sName) == sContent;
        };
        for (const std::string sName : kNames) {
            const bool bTrashed = bin.contains({sFrom + '/' + sName, New(sName)});
            look(!from.contains(sName) && !isThere(sName, New(sName)) && !bTrashed, "lost " + sName);
        }
        look(scenario.bReplace && !isThere("b", kOld) && !bin.contains({sTo + "/b", kOld}), "lost the old b");
        for (const auto& files : {from, to, Contents(HomeTrash() + "/files")}) {
            for (const auto& [sName, sContent] : files) {
                look(sContent != kOld && sContent != New(sName) && !sName.starts_with(".tallyfen-"),
                     "partial " + sName);
            }
        }
        if (fault.nError == kKill) {
            return sWrong;
        }

        const auto reasons = support::Reasons(user.outcome);
        std::string sReasons;
        for (const auto& [sName, sReason] : reasons) {
            sReasons += sReason;
            look(!sReason.ends_with('.') || sReason.find('/') != sReason.npos, "no sentence: " + sReason);
        }
        const auto isTold = [&](const char* pWords) { return sReasons.find(pWords) != std::string::npos; };
        std::size_t nDone = 0;
        for (const std::string sName : kNames) {
            const bool bThere = scenario.wFunc == platform::FO_DELETE
                                    ? bin.contains({sFrom + '/' + sName, New(sName)})
                                    : isThere(sName, New(sName));
            const bool bDone = bThere && from.contains(sName) == (scenario.wFunc == platform::FO_COPY);
            nDone += bDone ? 1U : 0U;
            // Twice denied the way back, a copy may stand there though it could not be finished properly.
            look(!user.outcome.bCancelled && bDone == reasons.contains(sName) && !(bDone && fault.bStays),
                 sName + (bDone ? " done but denied" : " not done and not named"));
        }
        look(user.outcome.nFilesDone > nDone || (user.outcome.nFilesDone < nDone && !fault.bStays),
             "claims " + std::to_string(user.outcome.nFilesDone) + " of " + std::to_string(nDone));
        look(scenario.bReplace && !to.contains("b") && !isTold("is in the trash."),
             "the old b did not come back");
        const auto left = to.lower_bound(".tallyfen-");
        look(left != to.end() && left->first.starts_with(".tallyfen-") && !fault.bStays &&
                 !isTold("unfinished copy is left"),
             "leftover");
        // Nothing shows afterwards that a file has not reached the disk.
        const std::string sFailed = fault.nAt > 0 ? changes[fault.nAt - 1].sCall : "";
        look(fault.nError > 0 && fault.nError != EINTR && reasons.empty() &&
                 (sFailed == "fsync" || (sFailed == "begin" && fault.nError != EPERM)),
             "not synced and not named");
        return sWrong;
    }
};

TEST_F(FaultSweep, LosesNothingAndClaimsNothing)
{
    if (StatusOf(Home()).st_dev == StatusOf(fs::temp_directory_path()).st_dev) {
        GTEST_SKIP() << "the home of the tests is on the temporary folder's volume";
    }
    for (const tScenario& each : kScenarios) {
        scenario = each;
        sFrom = (each.bFromOtherVolume ? other.sRoot : tree.sRoot) + "/from";
        sTo = (each.bToOtherVolume ? other.sRoot : tree.sRoot) + "/to";
        ASSERT_EQ(Try({}), "") << scenario.pName;
        ASSERT_EQ(user.outcome.nFilesDone, scenario.bToOtherVolume && scenario.bReplace ? 2U : 3U)
            << scenario.pName;
        const auto all = changes;
        ASSERT_GT(all.size(), 5U);
        for (std::size_t n = 1; n <= all.size(); ++n) {
            const auto& [sCall, sName] = all[n - 1];
            std::vector<tFault> possible{{n, kKill}, {n, kCancel}, {n, ENOSPC, true}, {n, EIO, true}};
            for (const int nError : ErrorsOf(sCall)) {
                possible.push_back({n, nError});
            }
            for (const tFault& fault : possible) {
                EXPECT_EQ(Try(fault), "")
                    << scenario.pName << ", call " << n << " (" << sCall << ' ' << sName << "), error "
                    << fault.nError << (fault.bStays ? " from then on" : "");
            }
        }
    }
}

} // namespace
