// SPDX-License-Identifier: MIT
#pragma once

#include "Descriptor.h"
#include "HeldFolder.h"
#include "Renaming.h"

#include <string>

namespace desktop {

/// A file that is being written, accessible only to its owner: without a name if the file system supports
/// that, otherwise under an unpredictable hidden name, and locked. Unless it gets its final name, it is
/// removed with this object at the latest.
class TemporaryFile
{
public:
    /// Creates it in `folder`, which must outlive this object.
    explicit TemporaryFile(const HeldFolder& folder);
    TemporaryFile(const TemporaryFile&) = delete;
    TemporaryFile& operator=(const TemporaryFile&) = delete;
    ~TemporaryFile();

    /// The error number if it could not be created, otherwise 0.
    [[nodiscard]] int Error() const { return m_nError; }

    /// The descriptor, open for writing.
    [[nodiscard]] int Get() const { return m_file.Get(); }

    /// Syncs it to disk. Returns 0 or the error number, including errors that some file systems report only
    /// on close.
    [[nodiscard]] int Finish() const;

    /// Gives it its final name without replacing anything. Returns 0 or the error number.
    int Name(const tName& to);

    /// Removes it. False if it still exists under its hidden name.
    bool Remove();

private:
    const HeldFolder& m_folder;
    std::string m_sName; ///< empty for one without a name
    Descriptor m_file;
    int m_nError = 0;
};

} // namespace desktop
