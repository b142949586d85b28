// SPDX-License-Identifier: MIT
#pragma once

#include "FileSystem.h"

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <functional>
#include <gtest/gtest.h>
#include <map>
#include <memory>
#include <optional>
#include <random>
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
    std::vector<std::string> created;         ///< by opening what was missing

    // A search's reading: ahead of what is asked for, and late with it, as a generator of numbers decides.
    unsigned nSeed = 0;                   ///< 0: never late
    std::function<void()> onLate = [] {}; ///< called where a file asked for is not there yet

    ~ScriptedFiles() override { EXPECT_TRUE(m_handles.empty()) << "a file was left open"; }

    bool ListFolder(const std::string& sPath, platform::FolderListing& listing)
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
    std::unique_ptr<platform::SearchReading> BeginReading(const platform::tSearchedFolders&) override
    {
        return std::make_unique<Reading>(*this);
    }

    platform::FileHandle CreateFileA(const std::string& sPath) override
    {
        opened.push_back(sPath);
        if (!files.contains(sPath)) {
            created.push_back(sPath);
        }
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
        return {file.bReads, nRead};
    }

    void CloseHandle(platform::FileHandle hFile) override
    {
        EXPECT_EQ(m_handles.erase(hFile), 1U) << "closed what was not open";
    }

private:
    class Reading final : public platform::SearchReading
    {
    public:
        explicit Reading(ScriptedFiles& files) : m_files(files), m_random(files.nSeed) {}

        platform::Answer ListFolder(const std::string& sPath, platform::FolderListing& listing) override
        {
            if (Late()) {
                return platform::Answer::NotYet;
            }
            return m_files.ListFolder(sPath, listing) ? platform::Answer::Ready : platform::Answer::Failed;
        }

        void ReadFiles(platform::tFilesToRead toRead) override { m_toRead = std::move(toRead); }

        platform::Answer AskFor(std::uint32_t, std::uint32_t n, std::int32_t& nSum) override
        {
            while (m_nSwept < m_toRead.wanted.size() && !Late()) {
                Read(m_toRead.wanted[m_nSwept++], false);
            }
            if (!m_sums.contains(n) && (m_nSwept < m_toRead.wanted.size() || !m_first.contains(n))) {
                m_files.onLate();
                return Late() ? platform::Answer::NotYet : platform::Answer::Stuck;
            }
            Read(n, true);
            nSum = m_sums[n].value_or(0);
            return m_sums[n] ? platform::Answer::Ready : platform::Answer::Failed;
        }

        void ReadFirst(std::vector<std::uint32_t> entries) override
        {
            for (const std::uint32_t n : entries) {
                m_first.insert(n);
                Read(n, false);
            }
        }

    private:
        bool Late() { return m_files.nSeed != 0 && m_random() % 2 == 0; }

        /// Reads entry `n` unless it has been; creates what has gone only if it is asked for.
        void Read(std::uint32_t n, bool bAsked)
        {
            const auto file = m_toRead.fileAt(n);
            const std::string sPath = std::string(file.sFolder).append(file.sName);
            if (m_sums.contains(n) || (!bAsked && !m_files.files.contains(sPath))) {
                return;
            }
            auto& nSum = m_sums[n];
            const auto h = m_files.CreateFileA(sPath);
            std::vector<std::uint8_t> bytes(static_cast<std::size_t>(file.nBytes) + 1);
            if (h != platform::INVALID_HANDLE_VALUE) {
                const auto [bRead, nRead] = m_files.ReadFile(h, bytes.data(), bytes.size() - 1);
                std::fill(bytes.begin() + static_cast<std::ptrdiff_t>(nRead), bytes.end(), std::uint8_t{0});
                nSum = bRead ? std::optional(m_toRead.sumOf(bytes.data(), bytes.size() - 1)) : std::nullopt;
                m_files.CloseHandle(h);
            }
        }

        ScriptedFiles& m_files;
        std::mt19937 m_random;
        platform::tFilesToRead m_toRead;
        std::size_t m_nSwept = 0;
        std::set<std::uint32_t> m_first;
        std::map<std::uint32_t, std::optional<std::int32_t>> m_sums;
    };

    std::map<platform::FileHandle, const tFile*> m_handles;
    platform::FileHandle m_nLastHandle = 0;
};

} // namespace support
