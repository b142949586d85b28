// SPDX-License-Identifier: MIT
#pragma once

#include "Descriptor.h"
#include "Ending.h"
#include "FileIdentity.h"
#include "FolderEntry.h"
#include "Reasons.h"

#include <string>
#include <utility>

namespace desktop {

/// A file that is to be processed: its name in a held folder, its expected identity, and an open descriptor,
/// so that no other file can be mistaken for it.
class HeldFile
{
public:
    HeldFile(FolderEntry entry, const tFileIdentity& expected)
        : m_entry(std::move(entry)), m_expected(expected)
    {
    }

    /// Opens the file. NotDone if the name does not refer to the expected file.
    tEnding Hold();

    [[nodiscard]] const FolderEntry& Entry() const { return m_entry; }
    [[nodiscard]] const tFileIdentity& Expected() const { return m_expected; }

    /// The descriptor (O_PATH) after Hold.
    [[nodiscard]] int Get() const { return m_file.Get(); }

    /// Done if the path currently refers to this file, and it has not been modified.
    [[nodiscard]] tEnding IsStillThere() const;

private:
    FolderEntry m_entry;
    tFileIdentity m_expected;
    Descriptor m_file;
};

/// The destination of a rename of a held file.
struct tNewPlace {
    FolderEntry to;
    const char* pGone; ///< the message if the destination folder is no longer where it was
    const char* pLies; ///< says where a file is that could not be moved back: " It is in the trash."
    Step step;         ///< the current step, for error messages
};

/// The result of a rename.
struct tRelocation {
    tEnding ending;
    bool bBack = true; ///< if not done: whether the new name is free again
    int nError = 0;    ///< the error number if the rename was refused
};

/// Renames without replacing anything, then verifies that this file has arrived and that both folders are
/// where they were; otherwise renames it back.
tRelocation Relocate(const HeldFile& file, const tNewPlace& place);

/// Renames the file at the new name back without replacing anything. `sWhy` is the message with the reason.
tRelocation GoBack(const HeldFile& file, const tNewPlace& place, const std::string& sWhy);

} // namespace desktop
