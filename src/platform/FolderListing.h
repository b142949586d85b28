// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace platform {

/// A moment in UTC: whole seconds since 1 January 1970, before it negative.
struct tFileTime {
    std::int64_t nSeconds = 0;
};

/// One entry of a folder: a regular file or a folder.
struct tFindData {
    std::string_view cFileName; ///< the name's field as the system fills it: the name, then at least one NUL
    bool bDirectory = false;
    bool bHidden = false;
    std::int64_t nFileSize = 0; ///< bytes; 0 for a folder
    tFileTime ftLastWriteTime;  ///< not filled for a folder
};

/// What tells folders apart, whatever the paths that lead to them.
struct tFolderIdentity {
    std::uint64_t nDevice = 0; ///< the file system
    std::uint64_t nNumber = 0; ///< the folder's number in it
    std::uint64_t nMount = 0;  ///< the mount by which it was reached; 0 if the system does not say
};

/// The entries of one folder, without "." and "..", in the order in which they were added until they are
/// sorted
/// (`SortListing`).
class FolderListing
{
public:
    void Clear();

    /// Appends an entry; `cFileName` is copied, with its NUL.
    void Add(const tFindData& entry);

    [[nodiscard]] std::size_t Count() const { return m_entries.size(); }

    /// The folder listed.
    [[nodiscard]] const tFolderIdentity& Identity() const { return m_identity; }
    void SetIdentity(const tFolderIdentity& New_Identity) { m_identity = New_Identity; }

    /// Entry `n`, counted from 0. The name lives as long as the listing stays unchanged.
    [[nodiscard]] tFindData Entry(std::size_t n) const;

    /// Puts entry `order[n]` at place `n`; `order` names each entry once.
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
