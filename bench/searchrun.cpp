// SPDX-License-Identifier: MIT
// Runs one search over the folders on the command line, without a window.

#include "Escaped.h"
#include "GroupMarks.h"
#include "HeadlessForms.h"
#include "PosixFiles.h"
#include "SearchWorkers.h"
#include "cGroupRows.h"
#include "mCommon.h"
#include "mDataOperation.h"

#include <chrono>
#include <clocale>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <iostream>
#include <optional>
#include <string>
#include <string_view>
#include <sys/resource.h>
#include <vector>

namespace {

using bench::Clock;

constexpr int kFolderFailed = 2;
constexpr int kUsage = 64;

struct tOptions {
    bool bContent = true;
    bool bNameSize = false;
    bool bHidden = false;
    bool bPrint = false;
    std::size_t nWorkers = 0; ///< 0: as many as the program would use
    std::string sRowsFile;
    std::vector<std::string> folders;
};

/// File access with a selectable number of workers that counts requests.
class MeasuredFiles final : public platform::FileSystem
{
public:
    explicit MeasuredFiles(std::size_t nWorkers) : m_nWorkers(nWorkers) {}

    bool PathFound(const std::string& sPath) override { return m_files.PathFound(sPath); }
    std::optional<std::string> CanonicalFolder(const std::string& sPath) override
    {
        return m_files.CanonicalFolder(sPath);
    }
    platform::FileHandle CreateFileA(const std::string& sPath) override { return m_files.CreateFileA(sPath); }
    std::int64_t FileLength(platform::FileHandle hFile) override { return m_files.FileLength(hFile); }
    platform::tReadResult ReadFile(platform::FileHandle hFile, void* pBuffer, std::size_t nBytes) override
    {
        return m_files.ReadFile(hFile, pBuffer, nBytes);
    }
    void CloseHandle(platform::FileHandle hFile) override { m_files.CloseHandle(hFile); }
    std::unique_ptr<platform::SearchReading> BeginReading(const platform::tSearchedFolders& searched) override
    {
        return std::make_unique<desktop::SearchWorkers>(searched, m_nWorkers);
    }

private:
    std::size_t m_nWorkers;
    desktop::PosixFiles m_files;
};

int Usage()
{
    std::cerr << "usage: searchrun [--content | --name | --namesize] [--hidden] [--workers N] [--print] "
                 "[--rows FILE] "
                 "FOLDER...\n";
    return kUsage;
}

bool ReadOptions(const std::vector<std::string_view>& arguments, tOptions& options)
{
    bool bOptionsEnded = false;
    for (std::size_t n = 0; n < arguments.size(); ++n) {
        const std::string_view sArgument = arguments[n];
        if (bOptionsEnded || !sArgument.starts_with('-')) {
            options.folders.emplace_back(sArgument);
        } else if (sArgument == "--") {
            bOptionsEnded = true;
        } else if (sArgument == "--content" || sArgument == "--name" || sArgument == "--namesize") {
            options.bContent = sArgument == "--content";
            options.bNameSize = sArgument == "--namesize";
        } else if (sArgument == "--hidden") {
            options.bHidden = true;
        } else if (sArgument == "--print") {
            options.bPrint = true;
        } else if (sArgument == "--workers" && n + 1 < arguments.size()) {
            options.nWorkers = std::strtoul(std::string(arguments[++n]).c_str(), nullptr, 10);
        } else if (sArgument == "--rows" && n + 1 < arguments.size()) {
            options.sRowsFile = arguments[++n];
        } else {
            return false;
        }
    }
    return !options.folders.empty();
}

/// Adds the folders to the list; false if one cannot be opened.
bool AddFolders(const std::vector<std::string>& folders, platform::FileSystem& files, bench::MainForm& form)
{
    bool bAll = true;
    for (const std::string& sFolder : folders) {
        if (const auto sCanonical = files.CanonicalFolder(sFolder)) {
            form.lvFolders.ListItems.Add(*sCanonical, *sCanonical, 1);
        } else {
            std::cerr << "searchrun: cannot open " << platform::Escaped(sFolder) << '\n';
            bAll = false;
        }
    }
    return bAll;
}

/// Prints each group as escaped lines, followed by an empty line.
void PrintRows(platform::ListItems& rows)
{
    for (std::size_t n = 1; n <= rows.Count(); ++n) {
        std::cout << platform::Escaped(rows(n).Key()) << '\n';
        std::cout << (rows(n).SmallIcon() == platform::kMarkLast ? "\n" : "");
    }
}

bool WriteRows(const std::string& sFile, platform::ListItems& rows)
{
    std::ofstream file(sFile, std::ios::binary);
    for (std::size_t n = 1; n <= rows.Count(); ++n) {
        file << rows(n).SmallIcon() << '\t' << rows(n).Key() << '\0';
    }
    return static_cast<bool>(file.flush());
}

} // namespace

int main(int argc, char** argv)
{
    const auto began = Clock::now();
    std::setlocale(LC_ALL, "");
    tOptions options;
    if (!ReadOptions({argv + 1, argv + argc}, options)) {
        return Usage();
    }

    MeasuredFiles files(options.nWorkers);
    bench::tHeadless headless(files);
    auto& form = headless.form;
    auto& progress = headless.progress;

    form.mnuOptionsSearchContent.SetChecked(options.bContent);
    form.mnuOptionsSearchNameSize.SetChecked(options.bNameSize);
    form.mnuOptionsHidden.SetChecked(options.bHidden);
    const bool bAllFolders = AddFolders(options.folders, files, form);
    progress.comparisonBegan = began;
    if (form.lvFolders.ListItems.Count() > 0) {
        search::mnuSearchFind_Click();
    }
    const auto ended = Clock::now();

    auto& rows = form.lvFiles.ListItems;
    std::size_t nGroups = 0;
    for (std::size_t n = 1; n <= rows.Count(); ++n) {
        nGroups += rows(n).SmallIcon() == platform::kMarkFirst ? 1U : 0U;
    }
    if (options.bPrint) {
        PrintRows(rows);
    }
    // Each requested file has been read once, unless that failed.
    std::size_t nReads = 0;
    std::int64_t nReadBytes = 0;
    for (std::size_t n = 0; n < static_cast<std::size_t>(search::FileCount); ++n) {
        const bool bRead = !search::FileList[n].sCRC.empty();
        nReads += bRead ? 1U : 0U;
        nReadBytes += bRead ? search::FileList[n].cySize : 0;
    }
    rusage usage{};
    getrusage(RUSAGE_SELF, &usage);
    std::printf("files=%d rows=%zu groups=%zu reads=%zu read_bytes=%lld scan=%.3f compare=%.3f total=%.3f "
                "peak_kib=%ld\n",
                search::FileCount, rows.Count(), nGroups, nReads, static_cast<long long>(nReadBytes),
                bench::Seconds(began, progress.comparisonBegan),
                bench::Seconds(progress.comparisonBegan, ended), bench::Seconds(began, ended),
                usage.ru_maxrss);
    if (!options.sRowsFile.empty() && !WriteRows(options.sRowsFile, rows)) {
        std::cerr << "searchrun: cannot write " << options.sRowsFile << '\n';
        return kFolderFailed;
    }
    // An incomplete list must not look like a complete one.
    if (!std::cout.flush() || std::fflush(stdout) != 0) {
        std::cerr << "searchrun: cannot write to the standard output\n";
        return kFolderFailed;
    }
    return bAllFolders ? 0 : kFolderFailed;
}
