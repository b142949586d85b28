// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace platform {

/// A point in time in UTC: whole seconds since 1 January 1970, negative for earlier times.
struct tFileTime {
    std::int64_t nSeconds = 0;
};

/// An entry of a folder: a regular file or a subfolder.
struct tFindData {
    std::string_view cFileName; ///< the name field as the system fills it: the name and at least one NUL
    bool bDirectory = false;
    bool bHidden = false;
    std::int64_t nFileSize = 0; ///< bytes; 0 for a folder
    tFileTime ftLastWriteTime;  ///< not set for a folder

    [[nodiscard]] std::string_view Name() const { return cFileName.substr(0, cFileName.find('\0')); }
};

/// Identifies a folder, whatever path leads to it.
struct tFolderIdentity {
    std::uint64_t nDevice = 0; ///< the file system
    std::uint64_t nNumber = 0; ///< the inode number of the folder
    std::uint64_t nMount = 0;  ///< the mount through which it was reached; 0 if unknown
};

/// The entries of one folder, without "." and "..", in the order in which they were added until `SortListing`
/// sorts them.
class FolderListing
{
public:
    void Clear();

    /// Appends an entry; `cFileName` is copied, including its NUL.
    void Add(const tFindData& entry);

    [[nodiscard]] std::size_t Count() const { return m_entries.size(); }

    /// The folder listed.
    [[nodiscard]] const tFolderIdentity& Identity() const { return m_identity; }
    void SetIdentity(const tFolderIdentity& New_Identity) { m_identity = New_Identity; }

    /// Entry `n`, counted from 0. Its name is valid as long as the listing does not change.
    [[nodiscard]] tFindData Entry(std::size_t n) const;

    /// Moves entry `order[n]` to index `n`; `order` names each entry once.
    void Reorder(const std::vector<std::uint32_t>& order);

private:
    struct tStored {
        std::size_t nNameStart;
        std::uint32_t nNameField;
        bool bDirectory;
        bool bHidden;
        std::int64_t nFileSize;
        tFileTime ftLastWriteTime;
    };
    tFolderIdentity m_identity;
    std::string m_names;
    std::vector<tStored> m_entries;
};

} // namespace platform
