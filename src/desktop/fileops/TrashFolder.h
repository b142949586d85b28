// SPDX-License-Identifier: MIT
#pragma once

#include "HeldFolder.h"

#include <cstddef>
#include <string>
#include <sys/types.h>
#include <unordered_map>

namespace desktop {

/// A trash: its folder, and in it the folder of the files and the one of their notes, all held open.
class TrashFolder
{
public:
    /// The trash in folder `pRoot`, which is held. `sTop` is what the paths in its notes are relative to;
    /// empty if they are full. What it lacks is made.
    TrashFolder(FolderPtr pRoot, std::string sTop);

    /// The system's error number if it cannot be used, otherwise 0.
    [[nodiscard]] int Error() const { return m_nError; }
    [[nodiscard]] const HeldFolder& Root() const { return *m_pRoot; }
    [[nodiscard]] const FolderPtr& Files() const { return m_pFiles; }
    [[nodiscard]] const HeldFolder& Info() const { return *m_pInfo; }

    /// The volume that it takes files of without copying them.
    [[nodiscard]] dev_t Device() const { return m_pFiles->Look().status.st_dev; }

    /// True if some of its folders have just been made, and are not on the disk yet.
    [[nodiscard]] bool IsNew() const { return m_bNew; }
    void IsOnDisk() { m_bNew = false; }

    /// True if its path leads to these very folders now.
    [[nodiscard]] bool IsWhereItWas() const;

    /// The note for a file that was at `sPath`.
    [[nodiscard]] std::string NoteFor(const std::string& sPath) const;

    /// A name that neither a file nor a note has there, never the same one twice.
    std::string FreeName(const std::string& sName);

    /// Removes the note of this name in the trash, which has no file.
    /// False if it is still there.
    bool RemoveNote(const std::string& sNameInTrash) const;

private:
    FolderPtr Folder(const char* pName);

    int m_nError = 0;
    bool m_bNew = false;
    FolderPtr m_pRoot;
    FolderPtr m_pFiles;
    FolderPtr m_pInfo;
    std::string m_sTop;
    std::unordered_map<std::string, std::size_t> m_tries; ///< for each name, how many have been tried
};

} // namespace desktop
