// SPDX-License-Identifier: MIT
// Each call of an operation fails once with each error that it can give, the user cancels at it, or the
// program is killed at it: nothing is lost, nothing half-written bears a name, nothing is claimed that is not
// so, and the next operation clears up what a killed one has left.

#include "Operations.h"

#include <algorithm>
#include <csignal>
#include <cstring>

namespace {

using namespace fileops_test;
using support::FileWorld;
using support::tCall;
using support::tScenario;

struct tFault {
    std::size_t nAt = 0; ///< the call that fails, counted from 1; 0: none
    int nError = 0;
    bool bStays = false;  ///< all later calls that this error is possible for fail as well
    int nSignal = 0;      ///< instead: the process gets this signal
    bool bCancel = false; ///< instead: the user cancels
};

/// What can become of a call.
const std::vector<int>& ErrorsOf(const tCall& call)
{
    static const std::vector<int> naming{ENOSPC, EIO, EACCES, EPERM, ENOENT, EXDEV, EROFS, EINTR};
    static const std::vector<int> setting{ENOSPC, EIO, EPERM, EROFS, EOPNOTSUPP};
    static const std::vector<int> writing{ENOSPC, EIO,   EPERM,  EXDEV,      EROFS,
                                          EFBIG,  EINTR, ENOSYS, EOPNOTSUPP, support::kShort};
    static const std::vector<int> syncing{ENOSPC, EIO, EROFS, EINTR};
    static const std::vector<int> looking{EIO, EACCES};
    static const std::vector<int> closing{EIO, ENOSPC};
    const auto isOneOf = [&](std::string_view sCalls) { return sCalls.find(call.sCall) != sCalls.npos; };
    return !call.bChanges                                      ? call.sCall == "close" ? closing : looking
           : isOneOf("fsync fdatasync syncfs sync_file_range") ? syncing
           : isOneOf("fchmod fchown utimensat fsetxattr fremovexattr") ? setting
           : isOneOf("write pwrite64 copy_file_range")                 ? writing
                                                                       : naming;
}

class FaultSweep : public WatchedEach
{
protected:
    /// One run with a fault; what is wrong afterwards, empty if nothing.
    std::string Try(const tFault& fault)
    {
        world.Prepare(GetParam());
        const auto run = world.Run([&](const tCall& call, std::size_t n) {
            const bool bNow = n == fault.nAt;
            if (bNow && fault.bCancel) {
                FileWorld::Cancel();
            }
            if (bNow && fault.nSignal != 0) {
                kill(call.nProcess, fault.nSignal);
            }
            const auto& errors = ErrorsOf(call);
            const bool bCan = std::find(errors.begin(), errors.end(), fault.nError) != errors.end();
            return bCan && (bNow || (fault.bStays && n > fault.nAt)) ? fault.nError : 0;
        });
        calls = run.process.calls;
        nDone = run.nDone;
        if (fault.nSignal != 0) {
            const std::string sLost = world.Lost();
            world.RunNext();
            return sLost + (run.process.bHung ? "hangs; " : "") + world.Lost() + world.LeftBehind();
        }
        std::string sWrong = world.Wrong(run);
        std::string sReasons;
        for (const auto& [sPath, sReason] : run.reasons) {
            sReasons += sReason;
        }
        for (const std::string& sName : world.Names()) {
            const bool bUnsaid = GetParam().bReplace && !fault.bStays && !world.IsDone(sName) &&
                                 !fs::exists(world.sTo + '/' + sName) &&
                                 sReasons.find("in the trash") == sReasons.npos;
            sWrong += bUnsaid ? "what was to be replaced has gone unsaid; " : "";
        }
        const std::string sFailed = fault.nAt > 0 ? calls[fault.nAt - 1].sCall : "";
        if (!fault.bStays && sReasons.find("hidden") == sReasons.npos && !world.LeftBehind().empty()) {
            // Only what could not be removed or looked at is left to the next run.
            if (sFailed.starts_with("unlink") || sFailed == "newfstatat") {
                world.RunNext();
            }
            sWrong += world.LeftBehind();
        }
        // Nothing shows afterwards that a file has not reached the disk.
        const bool bUnsure =
            (fault.nError == EIO || fault.nError == ENOSPC) && sFailed.find("sync") != sFailed.npos;
        return sWrong + (bUnsure && sReasons.empty() ? "not synced and not named; " : "");
    }

    std::vector<tCall> calls; ///< of the last run
    std::size_t nDone = 0;
};

TEST_P(FaultSweep, LosesNothingAndClaimsNothing)
{
    const tScenario& scenario = GetParam();
    ASSERT_EQ(Try({}), "");
    ASSERT_EQ(nDone, scenario.bToOther && scenario.bReplace ? 0U : world.Names().size());
    const auto all = calls;
    // A copy is on the disk before its name, and its name before the source goes.
    const auto first = [&](const char* pCall, const std::string& sPath) {
        return std::find_if(all.begin(), all.end(), [&](const tCall& call) {
            return call.bChanges && call.sCall.find(pCall) != call.sCall.npos &&
                   (sPath.ends_with('/') ? call.sPath.starts_with(sPath) : call.sPath == sPath);
        });
    };
    const bool bMoves = scenario.wFunc == FO_MOVE;
    const bool bCopies = scenario.wFunc == FO_COPY || scenario.bFromOther || scenario.bToOther;
    if (bCopies && !scenario.bPlain) {
        EXPECT_LT(first("fsync", world.sTo + '/'), first("linkat", world.sTo + "/a"));
        EXPECT_LE(first("sync", world.sTo), bMoves ? first("", world.sFrom + '/') : all.end());
    }
    std::map<std::string, std::pair<std::size_t, std::string>> wrong; ///< by the fault: how often, the first
    for (std::size_t n = 1; n <= all.size(); ++n) {
        std::vector<tFault> possible{{n, 0, false, SIGKILL}, {n, 0, false, SIGTERM}, {n, 0, false, 0, true}};
        for (const int nError : ErrorsOf(all[n - 1])) {
            possible.push_back({n, nError});
        }
        if (all[n - 1].bChanges) {
            possible.push_back({n, ENOSPC, true});
            possible.push_back({n, EIO, true});
        }
        for (const tFault& fault : possible) {
            const std::string sWrong = Try(fault);
            const std::string sFault = fault.nSignal != 0 ? strsignal(fault.nSignal)
                                       : fault.bCancel    ? "the user cancels"
                                                          : "error " + std::to_string(fault.nError) +
                                                             (fault.bStays ? " from then on" : "");
            auto& [nTimes, sFirst] = wrong[sFault];
            if (!sWrong.empty() && nTimes++ == 0) {
                sFirst = std::to_string(n) + ' ' + all[n - 1].sCall + ' ' + all[n - 1].sPath + ": " + sWrong;
            }
        }
    }
    for (const auto& [sFault, found] : wrong) {
        EXPECT_EQ(found.first, 0U) << scenario.pName << ", " << sFault << ", first at call " << found.second;
    }
}

INSTANTIATE_TEST_SUITE_P(, FaultSweep, ::testing::ValuesIn(kScenarios), NameOf);

} // namespace
