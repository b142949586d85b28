#pragma once

#include <cstddef>
#include <functional>
#include <string>
#include <vector>

/// Every call of this program that changes files, also those inside libraries, passes through here: seen,
/// counted, and made to fail on demand.
namespace support::faults {

// In place of a system error number:
inline constexpr int kShort = -1;  ///< half of what is to be written is
inline constexpr int kKill = -2;   ///< the process ends right there, with kKilled
inline constexpr int kCancel = -3; ///< the user cancels: Cancelled() from then on
inline constexpr int kKilled = 99;

struct tFault {
    std::size_t nAt = 0; ///< the call that fails, counted from 1; 0: none
    int nError = 0;
    bool bStays = false; ///< all later calls that this error is possible for fail as well
};

/// A call that changes files.
struct tChange {
    std::string sCall; ///< "renameat2"
    std::string sName; ///< of the file, without its folder
};

struct tSettings {
    tFault fault;
    bool bPlainRenameOnly = false; ///< the file systems cannot rename without replacing
    bool bSyncForReal = true;
    std::function<void(const tChange&)> before; ///< called before each call is made
};

/// Begins to watch.
void Arm(const tSettings& settings);

/// Ends it; what has been seen, in order.
std::vector<tChange> Disarm();

bool Cancelled();

/// What can become of a call: system errors and the above.
std::vector<int> FaultsOf(const std::string& sCall);

} // namespace support::faults
