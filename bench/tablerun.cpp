// SPDX-License-Identifier: MIT
// Measures only the comparison: the files of the table exist in memory only, in shapes that are hard on a
// search.

#include "HeadlessForms.h"
#include "mCommon.h"
#include "mDataOperation.h"

#include <algorithm>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <optional>
#include <string>
#include <sys/resource.h>

namespace {

constexpr std::size_t kFilesInFolder = 1000;

/// A shape of a table: name, size and content as functions of the file number `n`.
struct tShape {
    const char* pName;
    std::string (*nameOf)(std::size_t n);
    std::int64_t (*sizeOf)(std::size_t n);
    bool bAlike; ///< all contents are equal
};

std::string OneName(std::size_t /*n*/)
{
    return "name.dat";
}

std::string NumberedName(std::size_t n)
{
    return "file-" + std::to_string(n) + ".dat";
}

constexpr tShape kShapes[] = {
    {"one name", OneName, [](std::size_t n) { return static_cast<std::int64_t>(n % 9'000'000); }, false},
    {"one size", NumberedName, [](std::size_t) { return std::int64_t{8}; }, false},
    {"one name, two sizes", OneName, [](std::size_t n) { return static_cast<std::int64_t>(8 + n % 2); },
     false},
    {"all empty", NumberedName, [](std::size_t) { return std::int64_t{0}; }, true},
    {"all alike", OneName, [](std::size_t) { return std::int64_t{8}; }, true},
};

/// A tree with one file or a thousand files per folder, depending on the names of the shape. Paths have 60
/// characters. A file is read when it is asked for.
class SyntheticReading final : public platform::SearchReading
{
public:
    SyntheticReading(const tShape& shape, std::size_t nFiles) : m_shape(shape), m_nFiles(nFiles) {}

    platform::Answer ListFolder(const std::string& sPath, platform::FolderListing& listing) override
    {
        listing.Clear();
        if (sPath == "/") {
            const std::size_t nInFolder = m_shape.nameOf == OneName ? 1 : kFilesInFolder;
            // The walk enters at most 32,767 subfolders of a folder, so the folders are split into several
            // parts.
            for (std::size_t n = 0; n < m_nFiles; n += 30'000 * nInFolder) {
                Add(listing, "part-" + std::to_string(n), true, 0);
            }
        } else {
            ListPart(sPath, listing);
        }
        return platform::Answer::Ready;
    }

    void ReadFiles(platform::tFilesToRead files) override { m_files = std::move(files); }
    platform::Answer AskFor(std::uint32_t /*nInHand*/, std::uint32_t n, std::int32_t& nSum) override
    {
        std::uint64_t nContent = m_shape.bAlike ? 0 : n;
        const auto nBytes = static_cast<std::size_t>(m_files.fileAt(n).nBytes);
        nSum = m_files.sumOf(reinterpret_cast<const std::uint8_t*>(&nContent),
                             std::min(nBytes, sizeof nContent));
        return platform::Answer::Ready;
    }
    void ReadFirst(std::vector<std::uint32_t> /*entries*/) override {}

private:
    static constexpr std::size_t kNumberAt = 6; // after "/part-"

    static void Add(platform::FolderListing& listing, const std::string& sName, bool bFolder,
                    std::int64_t nSize)
    {
        listing.Add({{sName.c_str(), sName.size() + 1}, bFolder, false, nSize, {1'000'000'000 + nSize}});
    }

    void ListPart(const std::string& sPath, platform::FolderListing& listing) const
    {
        const std::size_t nFirst = std::strtoull(sPath.c_str() + kNumberAt, nullptr, 10);
        const std::size_t nInFolder = m_shape.nameOf == OneName ? 1 : kFilesInFolder;
        const std::size_t nMark = sPath.find("/folder-");
        if (nMark == std::string::npos) {
            const std::size_t nEnd = std::min(m_nFiles, nFirst + 30'000 * nInFolder);
            for (std::size_t n = nFirst; n < nEnd; n += nInFolder) {
                Add(listing, "folder-of-a-usual-length-" + std::to_string(n), true, 0);
            }
            return;
        }
        const std::size_t nFolder = std::strtoull(sPath.c_str() + sPath.rfind('-') + 1, nullptr, 10);
        for (std::size_t n = nFolder; n < std::min(m_nFiles, nFolder + nInFolder); ++n) {
            Add(listing, m_shape.nameOf(n), false, m_shape.sizeOf(n));
        }
    }

    const tShape& m_shape;
    std::size_t m_nFiles;
    platform::tFilesToRead m_files;
};

class SyntheticFiles final : public platform::FileSystem
{
public:
    SyntheticFiles(const tShape& shape, std::size_t nFiles) : m_shape(shape), m_nFiles(nFiles) {}

    bool PathFound(const std::string& /*sPath*/) override { return false; }
    std::optional<std::string> CanonicalFolder(const std::string& sPath) override { return sPath; }
    platform::FileHandle CreateFileA(const std::string& /*sPath*/) override
    {
        return platform::INVALID_HANDLE_VALUE;
    }
    std::int64_t FileLength(platform::FileHandle /*hFile*/) override { return -1; }
    platform::tReadResult ReadFile(platform::FileHandle /*hFile*/, void* /*pBuffer*/,
                                   std::size_t /*nBytes*/) override
    {
        return {};
    }
    void CloseHandle(platform::FileHandle /*hFile*/) override {}
    std::unique_ptr<platform::SearchReading>
    BeginReading(const platform::tSearchedFolders& /*searched*/) override
    {
        return std::make_unique<SyntheticReading>(m_shape, m_nFiles);
    }

private:
    const tShape& m_shape;
    std::size_t m_nFiles;
};

void Run(const tShape& shape, std::size_t nFiles, const char* pMode)
{
    SyntheticFiles files(shape, nFiles);
    bench::tHeadless headless(files);
    auto& form = headless.form;
    auto& progress = headless.progress;
    form.mnuOptionsSearchContent.SetChecked(std::strcmp(pMode, "content") == 0);
    form.mnuOptionsSearchNameSize.SetChecked(std::strcmp(pMode, "namesize") == 0);
    form.lvFolders.ListItems.Add("/", "/", 1);

    search::mnuSearchFind_Click();
    const double dSeconds = bench::Seconds(progress.comparisonBegan, bench::Clock::now());
    std::printf("%-20s %-9s %9d %9zu %9.3f\n", shape.pName, pMode, search::FileCount,
                form.lvFiles.ListItems.Count(), dSeconds);
}

} // namespace

int main(int argc, char** argv)
{
    const std::size_t nFiles = argc > 1 ? std::strtoull(argv[1], nullptr, 10) : 1'000'000;
    std::printf("%-20s %-9s %9s %9s %9s\n", "table", "mode", "files", "rows", "seconds");
    for (const tShape& shape : kShapes) {
        for (const char* pMode : {"name", "namesize", "content"}) {
            Run(shape, nFiles, pMode);
        }
    }
    rusage usage{};
    getrusage(RUSAGE_SELF, &usage);
    std::printf("peak %.0f bytes a file\n",
                static_cast<double>(usage.ru_maxrss) * 1024 / static_cast<double>(nFiles));
    return 0;
}
