// SPDX-License-Identifier: MIT
#pragma once

#include "Descriptor.h"

#include <string>
#include <string_view>

namespace desktop {

/// What a file under a hidden name of this program's is. As long as the run lives that made it, it holds a
/// lock (flock) on the file.
enum class HiddenKind : char {
    Copy = 'c', ///< a copy in the making, or a placeholder for a name
    Source =
        's', ///< the source of a move, about to go: the file, or a folder that holds it under its own name
    Journal = 't', ///< notes of a trash that are being made
};

/// A hidden name that nobody can guess. Empty if the system has no random numbers to give. A source's has the
/// name that it had at its end.
std::string HiddenName(HiddenKind kind, std::string_view sOriginal = {});

/// Makes a file under a new hidden name in an open folder, for its owner alone, open for reading and writing,
/// and locks it. `sName` takes its name. Not open if that failed, with errno.
Descriptor MakeLocked(int hFolder, HiddenKind kind, std::string& sName);

/// True if `sName` is a hidden name of this kind.
bool IsHiddenName(std::string_view sName, HiddenKind kind);

/// The name that the source of this hidden name had; empty if it does not say.
std::string_view OriginalName(std::string_view sHiddenName);

} // namespace desktop
