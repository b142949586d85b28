// SPDX-License-Identifier: MIT
#pragma once

#include "Descriptor.h"

#include <string>
#include <string_view>

namespace desktop {

/// The purpose of a file with one of this program's hidden names. The run that created it holds a lock
/// (flock) on the file for its own lifetime.
enum class HiddenKind : char {
    Copy = 'c',    ///< an unfinished copy, or a placeholder for a name
    Source = 's',  ///< the source of a move before its removal, or a folder that contains it
    Journal = 't', ///< a record of notes in a trash that are being created
};

/// An unpredictable hidden name. Empty if the system provides no random numbers. For a source it ends in the
/// original name.
std::string HiddenName(HiddenKind kind, std::string_view sOriginal = {});

/// Creates a file with a new hidden name in an open folder, accessible only to its owner, open for reading
/// and writing, and locked. Sets `sName` to its name. Not open on failure, with errno set.
Descriptor MakeLocked(int hFolder, HiddenKind kind, std::string& sName);

/// True if `sName` is a hidden name of this kind.
bool IsHiddenName(std::string_view sName, HiddenKind kind);

/// The original name in the hidden name of a source; empty if it contains none.
std::string_view OriginalName(std::string_view sHiddenName);

} // namespace desktop
