// SPDX-License-Identifier: MIT
#pragma once

#include <array>
#include <cstdint>
#include <functional>
#include <string>
#include <sys/types.h>
#include <vector>

/// A process whose calls on files are seen before the kernel carries them out, whichever library or thread
/// makes them: counted, made to fail, or the moment in which somebody else acts.
namespace support {

/// A call on a file or folder below one of the places watched.
struct tCall {
    std::string sCall; ///< "renameat2"
    std::string sPath; ///< what it acts on, of two names the new one
    bool bChanges;     ///< it changes something, or brings it to the disk; others look
    std::array<std::uint64_t, 6> arguments;
    pid_t nProcess;
};

/// In place of a system's error number, for a write:
inline constexpr int kShort = -1; ///< half of what is to be written is

/// Called before the `n`th call, counted from 1, is carried out; the error to give instead, or 0.
using Judge = std::function<int(const tCall& call, std::size_t n)>;

/// How the work ended.
struct tSupervised {
    bool bHung = false; ///< ended because nothing happened for seconds
    int nStatus = 0;    ///< as of waitpid
    std::string sSaid;  ///< what the work returned; empty if it was killed
    std::vector<tCall> calls;
};

/// Does `work` in a process of its own, under the eyes of `judge`. A test fails where nobody may watch.
tSupervised Supervise(const std::vector<std::string>& places, const std::function<std::string()>& work,
                      const Judge& judge);

} // namespace support
