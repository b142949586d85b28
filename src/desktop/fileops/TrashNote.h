// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace desktop {

/// The text of the note for a file that was at `sPath`, with the current time: freedesktop.org Trash 1.0.
/// `sPath` is a full path, or in the trash of a volume relative to its top folder.
std::string TrashNote(std::string_view sPath);

/// The name of the note for the file with this name in the trash.
std::string NoteName(const std::string& sNameInTrash);

/// The name for a file in the trash at try number `nTry`, counted from 1: its own name, from the second try
/// on with a number before the first dot, truncated if the name of its note would be too long.
std::string NameInTrash(const std::string& sName, std::size_t nTry);

} // namespace desktop
