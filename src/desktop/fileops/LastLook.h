// SPDX-License-Identifier: MIT
#pragma once

#include "ContentComparison.h"
#include "HeldFile.h"
#include "HeldFolders.h"
#include "StayingCopies.h"

#include <optional>
#include <string>
#include <vector>

namespace desktop {

/// Sees to it, around the moment in which a file goes to the trash, that what was to stay of its contents
/// does. The copy that stays is held open from Before to After.
class LastLook
{
public:
    /// `folders` must outlive it.
    explicit LastLook(HeldFolders& folders) : m_folders(folders) {}

    /// Right before the held file goes: compares it with `copies` to the byte until one is the same, which is
    /// held from then on. One that is the file itself needs no comparison.
    tEnding Before(const HeldFile& file, const std::vector<tStayingCopy>& copies, const ProgressCall& goOn);

    /// Right behind it: NotDone if the copy has gone or changed meanwhile, so that the file is to come back.
    tEnding After();

private:
    struct tHeld {
        std::string sPath;
        HeldFile place;
        Descriptor file;
    };

    tEnding Hold(const tStayingCopy& copy, int nFlags);
    [[nodiscard]] tEnding CopyNotRead(int nError) const;
    tEnding CompareWith(int hFile, const ProgressCall& goOn);

    HeldFolders& m_folders;
    ContentComparison m_comparison;
    std::optional<tHeld> m_held; ///< what stays of the file in hand
};

} // namespace desktop
