// SPDX-License-Identifier: MIT
#pragma once

#include "Ending.h"
#include "FileIdentity.h"
#include "HeldFile.h"
#include "WriteLease.h"

#include <functional>
#include <string>

namespace desktop {

/// Removes the source of a move for good once its copy is safe. It is set aside first, under a name that
/// nobody can guess, so that what goes is what was looked at. `hSource` is open for reading only, and was
/// `before` when the copy began; `lease` is on it since then. `lastLook` says what speaks against it when all
/// is ready; empty if nothing. Not done if it is not the file that was held, or was written to, or may be
/// written to still; then it has its name back, or the reason says under which name it is.
tEnding RemoveSource(const HeldFile& file, int hSource, const Status& before, const WriteLease& lease,
                     const std::function<std::string()>& lastLook);

/// The reasons for a file that somebody writes to, or has written to.
inline constexpr const char* kOpenForWriting = "Another program has it open for writing.";
inline constexpr const char* kChanged = "It has changed in the meantime.";

} // namespace desktop
