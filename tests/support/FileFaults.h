#pragma once

#include <cstddef>
#include <functional>
#include <string>
#include <vector>

/// Every call of this program that changes files, also those inside libraries, passes through here: seen,
/// counted, and made to fail on demand. Nothing waits for the disk meanwhile.
namespace support::faults {

inline constexpr int kShort = -1; ///< in place of an error number: half of what is to be written is

/// A call that changes files.
struct tChange {
    std::string sCall; ///< "rename"
    std::string sName; ///< of the file, without its folder
};

/// Called before the `n`th change, counted from 1; the error to give instead, or 0, or kShort.
using Judge = std::function<int(const tChange& change, std::size_t n)>;

/// Begins to watch. With `bPlainRenameOnly` the file systems cannot rename without replacing.
void Arm(const Judge& judge = {}, bool bPlainRenameOnly = false);

/// Ends it; what has been seen, in order.
std::vector<tChange> Disarm();

} // namespace support::faults
