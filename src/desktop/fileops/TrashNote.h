// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace desktop {

/// The note that a trash keeps for a file that was at `sPath`, from now on: freedesktop.org Trash 1.0.
/// `sPath` is full, or for the trash of a volume relative to the volume's top folder.
std::string TrashNote(std::string_view sPath);

/// The name of the note for the file of this name in the trash.
std::string NoteName(const std::string& sNameInTrash);

/// The name that a file gets in the trash at the `nTry`th try, counted from 1: its own, with a number before
/// the first dot from the second on, cut where there would be no room for its note's name.
std::string NameInTrash(const std::string& sName, std::size_t nTry);

} // namespace desktop
