#pragma once

#include "FileSystem.h"

#include <algorithm>
#include <cstring>
#include <functional>
#include <gtest/gtest.h>
#include <map>
#include <optional>
#include <set>
#include <string>
#include <vector>

namespace support {

/// Folders and files in memory, each of which can be told to fail. A missing file is created by opening it,
/// unless it lies in "/gone/".
class ScriptedFiles : public platform::FileSystem
{
public:
    struct tFile {
        std::string sContent;
        bool bOpens = true;
        bool bReads = true;
        bool bWaits = false;                      ///< reads report that they waited for the disk
        std::optional<std::int64_t> nLength = {}; ///< what FileLength answers; without it, the truth
    };
    struct tListed {
        std::string sName;
        bool bDirectory = false;
        std::int64_t nSize = 0;
        std::int64_t nSeconds = 0;
    };
    std::map<std::string, tFile> files;
    std::map<std::string, std::vector<tListed>> folders; ///< by path with a separator at the end
    std::map<std::string, platform::tFolderIdentity> identities;
    std::vector<std::string> opened;          ///< the paths given to CreateFileA, in order
    std::map<std::string, std::string> links; ///< where links to folders lead
    std::vector<std::string> announced;
    std::size_t nMostAhead = 0; ///< the most files that were announced and not opened at any time

    ~ScriptedFiles() override { EXPECT_TRUE(m_handles.empty()) << "a file was left open"; }

    bool ListFolder(const std::string& sPath, platform::FolderListing& listing) override
    {
        listing.Clear();
        if (!folders.contains(sPath)) {
            return false;
        }
        listing.SetIdentity(identities[sPath]);
        for (const auto& [sName, bDirectory, nSize, nSeconds] : folders[sPath]) {
            const std::string sField = sName + std::string(3, '\0');
            listing.Add({sField, bDirectory, sName[0] == '.', nSize, {nSeconds}});
        }
        return true;
    }

    bool PathFound(const std::string& sPath) override { return files.contains(sPath); }
    std::optional<std::string> CanonicalFolder(const std::string& sPath) override
    {
        return links.contains(sPath) ? std::optional(links[sPath]) : std::nullopt;
    }
    bool AnnounceRead(const std::string& sPath, std::int64_t) override
    {
        announced.push_back(sPath);
        m_ahead.insert(sPath);
        nMostAhead = std::max(nMostAhead, m_ahead.size());
        return files[sPath].bWaits;
    }
    void SearchEnded() override {}

    platform::FileHandle CreateFileA(const std::string& sPath) override
    {
        opened.push_back(sPath);
        m_ahead.erase(sPath);
        if (sPath.starts_with("/gone/") || !files[sPath].bOpens) {
            return platform::INVALID_HANDLE_VALUE;
        }
        m_handles[++m_nLastHandle] = &files[sPath];
        return m_nLastHandle;
    }

    std::int64_t FileLength(platform::FileHandle hFile) override
    {
        const tFile& file = *m_handles.at(hFile);
        return file.nLength.value_or(static_cast<std::int64_t>(file.sContent.size()));
    }

    /// Reads from the start of the file. What it does not deliver it soils, as memory used before would be.
    platform::tReadResult ReadFile(platform::FileHandle hFile, void* pBuffer, std::size_t nBytes) override
    {
        const tFile& file = *m_handles.at(hFile);
        const std::size_t nRead = std::min(nBytes, file.sContent.size());
        std::memset(pBuffer, 0xA5, nBytes);
        std::memcpy(pBuffer, file.sContent.data(), nRead);
        return {file.bReads, nRead, file.bWaits};
    }

    void CloseHandle(platform::FileHandle hFile) override
    {
        EXPECT_EQ(m_handles.erase(hFile), 1U) << "closed what was not open";
    }

private:
    std::set<std::string> m_ahead;
    std::map<platform::FileHandle, const tFile*> m_handles;
    platform::FileHandle m_nLastHandle = 0;
};

} // namespace support
