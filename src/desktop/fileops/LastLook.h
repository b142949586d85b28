// SPDX-License-Identifier: MIT
#pragma once

#include "ContentComparison.h"
#include "FolderEntry.h"
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
    /// Right before the file goes: compares it, `expected` at `sPath`, with `copies` to the byte until one is
    /// the same, which is held from then on. One that is the file itself needs no comparison.
    tEnding Before(const std::string& sPath, const tFileIdentity& expected,
                   const std::vector<tStayingCopy>& copies, const ProgressCall& goOn);

    /// Right behind it: NotDone if the copy has gone or changed meanwhile, so that the file is to come back.
    tEnding After();

private:
    struct tHeld {
        tStayingCopy copy;
        Descriptor file;
    };

    tEnding Hold(const tStayingCopy& copy, int nFlags);
    [[nodiscard]] tEnding CopyNotRead(int nError) const;
    tEnding CompareWith(int hFile, const ProgressCall& goOn);

    ContentComparison m_comparison;
    std::optional<tHeld> m_held;
};

} // namespace desktop
