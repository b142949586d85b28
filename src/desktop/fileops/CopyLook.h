// SPDX-License-Identifier: MIT
#pragma once

#include "ContentComparison.h"
#include "Descriptor.h"
#include "Ending.h"
#include "HeldFile.h"
#include "HeldFolders.h"
#include "LastLook.h"
#include "StayingCopies.h"
#include "WriteLease.h"

#include <optional>
#include <string>
#include <vector>

namespace desktop {

/// Sees to it, around the moment in which a file goes to the trash, that what was to stay of its contents
/// does. The copy that stays is held open from Before to After.
class CopyLook final : public LastLook
{
public:
    /// `folders` must outlive it.
    explicit CopyLook(HeldFolders& folders) : m_folders(folders) {}

    /// The file that goes next, which must outlive the looks at it, and what is to stay of it; nothing: it
    /// goes as it is. `goOn` is called while it is compared.
    void Begin(const HeldFile& file, std::vector<tStayingCopy> copies, ProgressCall goOn);

    /// Compares it with the copies to the byte until one is the same, which is held from then on. One that is
    /// the file itself needs no comparison.
    tEnding Before(int hFile) override;

    /// NotDone if that copy has gone or changed meanwhile.
    tEnding After() override;

private:
    struct tHeld {
        std::string sPath;
        HeldFile place;
        Descriptor file;
    };

    tEnding Hold(const tStayingCopy& copy, int nFlags);
    [[nodiscard]] tEnding CopyNotRead(int nError) const;
    [[nodiscard]] tEnding StillThere() const;
    void Release();
    tEnding CompareWith(int hFile);

    HeldFolders& m_folders;
    const HeldFile* m_pFile = nullptr;
    std::vector<tStayingCopy> m_copies;
    ProgressCall m_goOn;
    ContentComparison m_comparison;
    std::optional<tHeld> m_held;       ///< what stays of the file in hand
    std::optional<WriteLease> m_lease; ///< on that
};

} // namespace desktop
