#pragma once

#include "Renaming.h"
#include "TargetFolder.h"

#include <string>

namespace desktop {

/// A file in the making: under a hidden name that nobody can guess, for its owner alone. Unless it has got
/// its final name, it goes with its object at the latest.
class TemporaryFile
{
public:
    /// Makes it in `folder`, which must outlive it.
    explicit TemporaryFile(const TargetFolder& folder);
    TemporaryFile(const TemporaryFile&) = delete;
    TemporaryFile& operator=(const TemporaryFile&) = delete;
    ~TemporaryFile();

    /// The system's error number if it could not be made, otherwise 0.
    [[nodiscard]] int Error() const { return m_nError; }

    /// Open for writing.
    [[nodiscard]] int Get() const { return m_file.Get(); }
    [[nodiscard]] tName Name() const { return {m_folder.Get(), m_sName}; }

    /// It has got its final name: there is nothing to remove any more.
    void Keep() { m_sName.clear(); }

    /// Removes it. False if it is still there under its hidden name.
    bool Remove();

private:
    const TargetFolder& m_folder;
    std::string m_sName;
    Descriptor m_file;
    int m_nError = 0;
};

} // namespace desktop
