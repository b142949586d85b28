// SPDX-License-Identifier: MIT
#pragma once

#include "FolderListing.h"
#include "IndexTable.h"
#include "TextStore.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <unordered_map>
#include <utility>
#include <vector>

namespace search {

/// Files larger than this, in bytes, are never compared.
inline constexpr std::int64_t kMaxComparedSize = 10'000'000;

/// A checksum as text: 1 to 8 uppercase hexadecimal digits, or empty while it is not known.
class tChecksumText
{
public:
    tChecksumText() = default;
    explicit tChecksumText(std::uint32_t nChecksum); ///< without leading zeros

    [[nodiscard]] std::string_view View() const { return {m_aDigits.data(), m_nLength}; }
    [[nodiscard]] bool empty() const { return m_nLength == 0; }
    bool operator==(const tChecksumText&) const = default;
    bool operator<(const tChecksumText& other) const { return View() < other.View(); }

private:
    std::array<char, 8> m_aDigits{};
    std::uint8_t m_nLength = 0;
};

/// A file that was found.
struct tFileEntry {
    platform::StoredText sName; ///< without the folder, exact bytes
    platform::StoredText sPath; ///< its folder, ending in a separator; stored once for all files of a folder
    std::int64_t cySize = 0;    ///< bytes
    double dtDate = 0;          ///< last write in local time: days since 30 December 1899; 0 if unknown
    tChecksumText sCRC;         ///< computed only if the search by content needs it
    bool bDone = false;         ///< takes no further part in the comparison

    [[nodiscard]] std::string FullPath() const
    {
        const std::string_view sFolder = sPath.View();
        const std::string_view sFile = sName.View();
        std::string sFull;
        sFull.reserve(sFolder.size() + sFile.size());
        return sFull.append(sFolder).append(sFile);
    }
};

/// The table of files found by the current or last search. Owns its entries and their texts. It always has at
/// least one entry, which is empty while there are no files.
class FileTable
{
public:
    tFileEntry& operator[](std::size_t n) { return m_entries[n]; }

    /// Grows the table to `nCount` entries, at least one, and keeps the existing ones.
    void Resize(std::size_t nCount);

    /// Drops all texts and all entries but one, which is empty then.
    void Clear();

    /// A folder whose files are about to be added.
    struct tFolder {
        platform::StoredText sPath;
        bool bSeenBefore = false; ///< through another path, as with two mounts of a folder
    };

    /// Stores the path of a folder.
    tFolder AddFolder(std::string_view sPath, const platform::tFolderIdentity& identity);

    platform::TextStore texts; ///< storage for the texts of the entries

private:
    using tDeviceAndNumber = std::pair<std::uint64_t, std::uint64_t>;
    struct tHash {
        std::size_t operator()(const tDeviceAndNumber& key) const
        {
            return platform::HashNumbers(key.first, key.second);
        }
    };
    std::unordered_map<tDeviceAndNumber, std::uint64_t, tHash>
        m_mounts; ///< the mount through which each folder was reached first
    std::vector<tFileEntry> m_entries = std::vector<tFileEntry>(1);
};

extern FileTable FileList;

/// The number of used entries in FileList, which is also the index of the next one.
extern std::int32_t FileCount;

/// True if the running operation is to stop, or none is running. False before the first operation.
extern bool bStopped;

/// Yields for `nSteps` steps; true if the running operation is to stop.
bool StoppedAfterYield(std::int64_t nSteps = 1);

/// Switches the user interface to working mode, or back with false.
void SetWorking(bool bWorking);

/// Clears the result list, the count panel and the file table.
void ClearResults();

} // namespace search
