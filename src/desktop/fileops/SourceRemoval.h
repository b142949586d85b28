// SPDX-License-Identifier: MIT
#pragma once

#include "Ending.h"
#include "FileIdentity.h"
#include "HeldFile.h"
#include "WriteLease.h"

#include <functional>
#include <string>

namespace desktop {

/// Permanently removes the source of a move once its copy is safe. First renames it to an unpredictable name,
/// so that the file that is removed is the one that was checked. `hSource` is open for reading only and had
/// the state `before` when the copy began; `lease` has been on it since then. `lastLook` returns a final
/// objection, or an empty text. NotDone if it is not the held file, or has been or may still be written to;
/// it then has its name back, or the reason says under which name it is.
tEnding RemoveSource(const HeldFile& file, int hSource, const Status& before, const WriteLease& lease,
                     const std::function<std::string()>& lastLook);

/// The reasons for a file that is being written to, or has been written to.
inline constexpr const char* kOpenForWriting = "Another program has it open for writing.";
inline constexpr const char* kChanged = "It has changed in the meantime.";

} // namespace desktop
