// SPDX-License-Identifier: MIT
#pragma once

#include "HeldFile.h"

namespace desktop {

/// Removes the source of a move for good once its copy is safe. It is set aside first, under a name that
/// nobody can guess, so that what goes is what was looked at. `hSource` is open for reading only. Not done if
/// it is not the file that was held, or was written to, or may be written to still; then it has its name
/// back, or the reason says under which name it is.
tEnding RemoveSource(const HeldFile& file, int hSource);

/// The reason for a file that somebody writes to.
inline constexpr const char* kOpenForWriting = "Another program has it open for writing.";

} // namespace desktop
