// SPDX-License-Identifier: MIT
#pragma once

#include "Descriptor.h"
#include "HeldFolder.h"
#include "Renaming.h"

#include <string>

namespace desktop {

/// A file in the making, for its owner alone: without a name where the file system can have such, else under
/// a hidden name that nobody can guess, and locked. Unless it has got its final name, it goes with its object
/// at the latest.
class TemporaryFile
{
public:
    /// Makes it in `folder`, which must outlive it.
    explicit TemporaryFile(const HeldFolder& folder);
    TemporaryFile(const TemporaryFile&) = delete;
    TemporaryFile& operator=(const TemporaryFile&) = delete;
    ~TemporaryFile();

    /// The system's error number if it could not be made, otherwise 0.
    [[nodiscard]] int Error() const { return m_nError; }

    /// Open for writing.
    [[nodiscard]] int Get() const { return m_file.Get(); }

    /// Brings it to the disk. 0, or the system's error number, also of what some file systems only tell when
    /// a file is closed.
    [[nodiscard]] int Finish() const;

    /// Gives it its final name, without replacing anything. 0, or the system's error number.
    int Name(const tName& to);

    /// Removes it. False if it is still there under its hidden name.
    bool Remove();

private:
    const HeldFolder& m_folder;
    std::string m_sName; ///< empty for one without a name
    Descriptor m_file;
    int m_nError = 0;
};

} // namespace desktop
