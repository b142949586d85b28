// SPDX-License-Identifier: MIT
#pragma once

#include "HeldFolder.h"

#include <cstddef>
#include <string>
#include <sys/types.h>
#include <unordered_map>

namespace desktop {

/// A trash: its folder, with the folder of the files and that of their notes, all held open.
class TrashFolder
{
public:
    /// The trash in the held folder `pRoot`. The paths in its notes are relative to `sTop`; if that is empty,
    /// they are full. Missing folders are created.
    TrashFolder(FolderPtr pRoot, std::string sTop);

    /// The error number if it cannot be used, otherwise 0.
    [[nodiscard]] int Error() const { return m_nError; }
    [[nodiscard]] const HeldFolder& Root() const { return *m_pRoot; }
    [[nodiscard]] const FolderPtr& Files() const { return m_pFiles; }
    [[nodiscard]] const HeldFolder& Info() const { return *m_pInfo; }

    /// The volume whose files it can take without copying them.
    [[nodiscard]] dev_t Device() const { return m_pFiles->Look().status.st_dev; }

    /// True if some of its folders have just been created and are not synced to disk yet.
    [[nodiscard]] bool IsNew() const { return m_bNew; }
    void IsOnDisk() { m_bNew = false; }

    /// True if its path still leads to these folders.
    [[nodiscard]] bool IsWhereItWas() const;

    /// The note for a file that was at `sPath`.
    [[nodiscard]] std::string NoteFor(const std::string& sPath) const;

    /// A name that is not in use for a file or a note in the trash; never returns the same name twice.
    std::string FreeName(const std::string& sName);

    /// Removes the note for this name in the trash, which has no file. False if it still exists.
    bool RemoveNote(const std::string& sNameInTrash) const;

private:
    FolderPtr Folder(const char* pName);

    int m_nError = 0;
    bool m_bNew = false;
    FolderPtr m_pRoot;
    FolderPtr m_pFiles;
    FolderPtr m_pInfo;
    std::string m_sTop;
    std::unordered_map<std::string, std::size_t> m_tries; ///< for each name, the number of tries so far
};

} // namespace desktop
