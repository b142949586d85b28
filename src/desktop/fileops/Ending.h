// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <utility>

namespace desktop {

/// The result of the work on one file, or of a step of it.
struct tEnding {
    enum class Kind { Done, Skipped, Cancelled, NotDone };

    static tEnding NotDone(std::string sReason) { return {Kind::NotDone, std::move(sReason)}; }
    /// NotDone for a file that is kept because no copy of it was found that stays.
    static tEnding Spared(std::string sReason) { return {Kind::NotDone, std::move(sReason), true}; }
    [[nodiscard]] bool IsDone() const { return kind == Kind::Done; }

    Kind kind = Kind::Done;
    std::string sReason;    ///< the message for the user, in sentences without the path: always set for
                            ///< NotDone, and for Done if there is a remark
    bool bSpared = false;   ///< NotDone because no copy was found that stays
    bool bReplaced = false; ///< Done, and another file was replaced
};

/// Reports how many bytes of the current file are done. Returns false if the user has cancelled.
using ProgressCall = std::function<bool(std::int64_t)>;

} // namespace desktop
