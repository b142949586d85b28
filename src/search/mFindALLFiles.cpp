// SPDX-License-Identifier: MIT
#include "mFindALLFiles.h"

#include "FileTime.h"
#include "FormMembers.h"
#include "Paths.h"
#include "System.h"
#include "mCommon.h"
#include "mCompactPath.h"

#include <optional>
#include <vector>

namespace search {
namespace {

/// True if the entry is not hidden, or hidden entries are included.
bool Accepted(const platform::tFindData& entry)
{
    return !entry.bHidden || frmMain().mnuOptionsHidden.Checked();
}

void AppendFile(const FileTable::tFolder& folder, std::string_view sName, const platform::tFindData& entry)
{
    FileList.Resize(static_cast<std::size_t>(FileCount) + 1);
    tFileEntry& file = FileList[static_cast<std::size_t>(FileCount)];
    file.sName = FileList.texts.Add(sName);
    file.sPath = folder.sPath;
    file.cySize = entry.nFileSize;
    if (const auto stTime = platform::LocalTime(entry.ftLastWriteTime)) {
        file.dtDate = platform::DateValue(*stTime);
    }
    // A file reached through a second path would be reported as a duplicate of itself.
    file.bDone = file.cySize > kMaxComparedSize || folder.bSeenBefore;
    ++FileCount;
}

/// The names of the accepted subfolders; empty if the walk is to stop.
std::optional<std::vector<std::string>> CollectSubfolders(const platform::FolderListing& listing)
{
    std::vector<std::string> names;
    for (std::size_t n = 0; n < listing.Count(); ++n) {
        if (StoppedAfterYield()) {
            return std::nullopt;
        }
        const auto entry = listing.Entry(n);
        if (entry.bDirectory && Accepted(entry) && names.size() < kMaxSubfolders) {
            names.emplace_back(TrimNull(entry.cFileName));
        }
    }
    return names;
}

/// Appends the accepted files; false if the walk is to stop.
bool AppendFiles(const platform::FolderListing& listing, const std::string& sPath)
{
    std::optional<FileTable::tFolder> folder; // set with the first file
    for (std::size_t n = 0; n < listing.Count(); ++n) {
        if (StoppedAfterYield()) {
            return false;
        }
        const auto entry = listing.Entry(n);
        if (!entry.bDirectory && Accepted(entry)) {
            if (!folder) {
                folder = FileList.AddFolder(sPath, listing.Identity());
            }
            AppendFile(*folder, TrimNull(entry.cFileName), entry);
        }
    }
    return true;
}

/// Lists a folder. False if it cannot be opened, or the walk is to stop.
bool Listed(const std::string& sPath, platform::SearchReading& reading, platform::FolderListing& listing)
{
    while (!bStopped) {
        const auto answer = reading.ListFolder(sPath, listing);
        if (answer != platform::Answer::NotYet) {
            return answer == platform::Answer::Ready;
        }
        platform::DoEvents(0);
    }
    return false;
}

} // namespace

void FindAllFiles(std::string sPath, platform::SearchReading& reading)
{
    if (!sPath.ends_with(platform::kSeparator)) {
        sPath += platform::kSeparator;
    }
    std::vector<std::string> subfolders;
    {
        // Releases the listing of a folder before its subfolders are entered.
        platform::FolderListing listing;
        if (!Listed(sPath, reading, listing)) {
            return;
        }
        auto collected = CollectSubfolders(listing);
        if (!collected) {
            return;
        }
        subfolders = std::move(*collected);
        if (!AppendFiles(listing, sPath)) {
            return;
        }
    }
    for (const std::string& sName : subfolders) {
        if (StoppedAfterYield()) {
            return;
        }
        const std::string sFull = sPath + sName;
        frmProgress().lblFolder.SetCaption(LabelText(sFull));
        FindAllFiles(sFull + platform::kSeparator, reading);
    }
}

std::string_view TrimNull(std::string_view sText)
{
    return sText.substr(0, sText.find('\0'));
}

std::string FileTimeToText(platform::tFileTime ftTime)
{
    const auto stTime = platform::LocalTime(ftTime);
    if (!stTime) {
        return {};
    }
    return std::to_string(stTime->wDay) + "/" + std::to_string(stTime->wMonth) + "/" +
           std::to_string(stTime->wYear) + " " + std::to_string(stTime->wHour) + ":" +
           std::to_string(stTime->wMinute) + ":" + std::to_string(stTime->wSecond);
}

bool FileFound(const std::string& sPath)
{
    return platform::System().files->PathFound(sPath);
}

} // namespace search
