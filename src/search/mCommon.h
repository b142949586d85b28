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

/// Files above this size, in bytes, are never compared.
inline constexpr std::int64_t kMaxComparedSize = 10'000'000;

/// A checksum as text: 1 to 8 uppercase hexadecimal digits, or empty while it is not worked out.
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

/// One file found.
struct tFileEntry {
    platform::StoredText sName; ///< without any folder, exact bytes
    platform::StoredText sPath; ///< its folder, ending in a separator; one text for all files of a folder
    std::int64_t cySize = 0;    ///< bytes
    double dtDate = 0;          ///< last write in local time: days since 30 December 1899; 0 if unknown
    tChecksumText sCRC;         ///< worked out only when the search by content needs it
    bool bDone = false;         ///< takes no further part in a comparison

    /// The file's full path.
    [[nodiscard]] std::string FullPath() const
    {
        const std::string_view sFolder = sPath.View();
        const std::string_view sFile = sName.View();
        std::string sFull;
        sFull.reserve(sFolder.size() + sFile.size());
        return sFull.append(sFolder).append(sFile);
    }
};

/// The table of files found by the current or last search. It owns its entries and their texts, and holds
/// one empty entry while it holds no file.
class FileTable
{
public:
    tFileEntry& operator[](std::size_t n) { return m_entries[n]; }

    /// Makes entry `nCount` - 1 exist, at least one entry, and keeps the earlier ones.
    void Resize(std::size_t nCount);

    /// Drops all entries but one, empty, and all texts.
    void Clear();

    /// A folder whose files are about to be entered.
    struct tFolder {
        platform::StoredText sPath;
        bool bSeenBefore = false; ///< by another route, as it is where a folder is mounted in two places
    };

    /// Keeps the path of a folder.
    tFolder AddFolder(std::string_view sPath, const platform::tFolderIdentity& identity);

    platform::TextStore texts; ///< where the entries' texts are kept

private:
    using tDeviceAndNumber = std::pair<std::uint64_t, std::uint64_t>;
    struct tHash {
        std::size_t operator()(const tDeviceAndNumber& key) const
        {
            return platform::HashNumbers(key.first, key.second);
        }
    };
    std::unordered_map<tDeviceAndNumber, std::uint64_t, tHash>
        m_mounts; ///< by which a folder was reached first
    std::vector<tFileEntry> m_entries = std::vector<tFileEntry>(1);
};

extern FileTable FileList;

/// The number of entries of FileList in use; also the index at which the next one goes.
extern std::int32_t FileCount;

/// True: the running operation is to stop, or none is running. False before the first operation.
extern bool bStopped;

/// Switches the user interface into an operation or, with false, out of it.
void SetWorking(bool bWorking);

/// Empties the result list, the count panel and the file table.
void ClearResults();

} // namespace search
