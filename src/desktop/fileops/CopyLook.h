// SPDX-License-Identifier: MIT
#pragma once

#include "ContentComparison.h"
#include "Descriptor.h"
#include "Ending.h"
#include "FileIdentity.h"
#include "HeldFile.h"
#include "HeldFolders.h"
#include "LastLook.h"
#include "StayingCopies.h"
#include "WriteLease.h"

#include <optional>
#include <string>
#include <vector>

namespace desktop {

/// Verifies, before and after a file is moved to the trash, that a copy of its contents stays. The copy is
/// held open from Before to After.
class CopyLook final : public LastLook
{
public:
    /// `folders` must outlive this object.
    explicit CopyLook(HeldFolders& folders) : m_folders(folders) {}

    /// Sets the file that goes next, which must outlive the checks, and the copies that stay of it. Without
    /// copies it goes unchecked. `goOn` is called during the comparison.
    void Begin(const HeldFile& file, std::vector<tStayingCopy> copies, ProgressCall goOn);

    /// Compares the file with the copies byte by byte until an identical one is found, and holds that one. A
    /// copy that is a hard link to the file needs no comparison.
    tEnding Before(int hFile) override;

    /// NotDone if that copy has gone or changed meanwhile.
    tEnding After() override;

private:
    /// A file that is compared, watched from before the comparison on. The lease detects most writers. There
    /// is none on another user's file, but its time of change cannot be set back.
    struct tWatched {
        explicit tWatched(int hFile) : h(hFile), before(LookAt(hFile).status), lease(hFile) {}

        int h;
        Status before;
        WriteLease lease;
    };

    struct tHeld {
        std::string sPath;
        HeldFile place;
        Descriptor file;
    };

    tEnding Hold(const tStayingCopy& copy, int nFlags);
    [[nodiscard]] tEnding CopyNotRead(int nError) const;
    [[nodiscard]] tEnding StillThere() const;
    [[nodiscard]] bool IsFoundAgain() const;
    void Release();
    tEnding Compare();

    HeldFolders& m_folders;
    const HeldFile* m_pFile = nullptr;
    std::vector<tStayingCopy> m_copies;
    ProgressCall m_goOn;
    ContentComparison m_comparison;
    std::optional<tHeld> m_held; ///< the copy of the current file
    Descriptor m_open;           ///< the current file, if it is compared
    std::optional<tWatched> m_copy;
    std::optional<tWatched> m_goes;
};

} // namespace desktop
