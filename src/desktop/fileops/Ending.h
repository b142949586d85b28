// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <utility>

namespace desktop {

/// How the work on one file, or a step of it, ended.
struct tEnding {
    enum class Kind { Done, Skipped, Cancelled, NotDone };

    static tEnding NotDone(std::string sReason) { return {Kind::NotDone, std::move(sReason)}; }
    static tEnding Spared(std::string sReason) { return {Kind::NotDone, std::move(sReason), true}; }
    [[nodiscard]] bool IsDone() const { return kind == Kind::Done; }

    Kind kind = Kind::Done;
    std::string sReason;  ///< what the user is to be told, in sentences without the path; always for NotDone,
                          ///< and for Done what is to be known besides
    bool bSpared = false; ///< NotDone, since nothing was found that stays of its contents
    bool bReplaced = false; ///< Done, and another file has made room
};

/// Told how many bytes of the file in hand are done. False: the user has cancelled.
using ProgressCall = std::function<bool(std::int64_t)>;

} // namespace desktop
