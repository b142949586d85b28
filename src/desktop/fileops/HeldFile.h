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

/// A file that is to be acted on: its place in a held folder, what it must still be, and the file itself,
/// held open, so that no other can be taken for it.
class HeldFile
{
public:
    HeldFile(FolderEntry entry, const tFileIdentity& expected)
        : m_entry(std::move(entry)), m_expected(expected)
    {
    }

    /// Takes hold of it. Not done if what bears the name is not the file that is expected.
    tEnding Hold();

    [[nodiscard]] const FolderEntry& Entry() const { return m_entry; }
    [[nodiscard]] const tFileIdentity& Expected() const { return m_expected; }

    /// Open as a mere place (O_PATH) once it is held.
    [[nodiscard]] int Get() const { return m_file.Get(); }

    /// Done if its path leads to it now, and it has not been written to.
    [[nodiscard]] tEnding IsStillThere() const;

private:
    FolderEntry m_entry;
    tFileIdentity m_expected;
    Descriptor m_file;
};

/// A new name for a held file.
struct tNewPlace {
    FolderEntry to;
    const char* pGone; ///< the sentence for a folder that is no longer where it was
    const char*
        pLies; ///< the sentence that says where a file lies that could not go back: " It is in the trash."
    Step step; ///< what is being done, for the reasons of the system
};

/// How that ended.
struct tRelocation {
    tEnding ending;
    bool bBack = true; ///< if not done: there is nothing at the new name
    int nError = 0;    ///< what the system said if it refused to rename
};

/// Renames, without replacing anything, and sees that it was this file that arrived, and that both folders
/// are where they were; otherwise what arrived goes back.
tRelocation Relocate(const HeldFile& file, const tNewPlace& place);

/// Gives what is at the new name the old one back, replacing nothing. `sWhy` is the sentence for the reason.
tRelocation GoBack(const HeldFile& file, const tNewPlace& place, const std::string& sWhy);

} // namespace desktop
