// SPDX-License-Identifier: MIT
// A report has one line for each row, whatever the names are, and each line identifies its name.

#include "FormMembers.h"
#include "GroupMarks.h"
#include "NameOf.h"
#include "PosixTextFiles.h"
#include "Require.h"
#include "SaveResults.h"
#include "System.h"
#include "Utf8.h"
#include "cGroupRows.h"

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <fuzzer/FuzzedDataProvider.h>
#include <sstream>

namespace {

struct tMainForm final : search::MainFormMembers {
    void CheckMenu() override {}
    std::string sSelectedFolder() override { return {}; }
};

struct tProgressForm final : search::ProgressFormMembers {
    search::ProgressBarMembers& pbProgress() override { std::abort(); }
    void Show() override {}
    void Refresh() override {}
    void Unload() override {}
};

struct tPointer final : platform::Screen {
    void SetMousePointer(platform::MousePointer /*pointer*/) override {}
};

/// Writes the report to a file of its own instead of asking, and records that it is opened.
struct tUser final : platform::ShellDialogs, platform::Launcher {
    platform::ItemId SHBrowseForFolder(const platform::BROWSEINFO& /*info*/) override { return {}; }
    bool SHGetPathFromIDList(platform::ItemId /*pidl*/, std::string& /*sBuffer*/) override { return false; }
    platform::ItemId SHBrowseForFolderA(const platform::BROWSEINFO& /*info*/) override { return {}; }
    bool SHGetPathFromIDListA(platform::ItemId /*pidl*/, std::string& /*sBuffer*/) override { return false; }
    void CoTaskMemFree(platform::ItemId /*pidl*/) override {}
    bool GetSaveFileNameA(platform::OPENFILENAME& request) override
    {
        request.lpstrFile = sPath + '\0';
        return true;
    }
    long ShellExecuteA(platform::WindowHandle /*hwnd*/, const std::string& /*sVerb*/,
                       const std::string& sFile, const std::string& /*sParameters*/,
                       const std::string& /*sDirectory*/, int /*nShowCmd*/) override
    {
        sOpened = sFile;
        return 33;
    }
    bool ShellExecuteExA(const platform::SHELLEXECUTEINFO& /*info*/) override { return false; }

    std::string sPath = (std::filesystem::temp_directory_path() / "report.txt").string();
    std::string sOpened;
};

struct tProgram {
    tProgram()
    {
        search::UseForms(main, progress);
        platform::UseSystem(
            {.screen = &pointer, .dialogs = &user, .launcher = &user, .textFiles = &textFiles});
    }

    tMainForm main;
    tProgressForm progress;
    tPointer pointer;
    tUser user;
    desktop::PosixTextFiles textFiles;
};

struct tWritten {
    int nMark;
    std::string sKey;
};

/// Rows with group marks in any order, including orders that no search produces.
std::vector<tWritten> FillList(platform::ListItems& rows, FuzzedDataProvider& input)
{
    std::vector<tWritten> written;
    while (input.remaining_bytes() > 0 && written.size() < 64) {
        const int nMark = input.ConsumeIntegralInRange(0, platform::kMarkLast + platform::kMarksGone + 1);
        const std::string sFolder = "/" + input.ConsumeRandomLengthString(40);
        const std::string sName = input.ConsumeRandomLengthString(300);
        if (rows.Add(sFolder + sName, sName, nMark)) {
            written.push_back({nMark, sFolder + sName});
        }
    }
    return written;
}

/// The lines of a text whose every line ends in CR LF.
std::vector<std::string> Lines(std::string sText)
{
    std::vector<std::string> lines;
    for (std::size_t nEnd = 0; !sText.empty(); sText.erase(0, nEnd + 2)) {
        nEnd = sText.find("\r\n");
        Require(nEnd != std::string::npos, "each line has its end");
        lines.push_back(sText.substr(0, nEnd));
    }
    return lines;
}

void CheckLines(std::vector<std::string> lines, const std::vector<tWritten>& rows)
{
    std::reverse(lines.begin(), lines.end());
    const auto next = [&lines] {
        Require(!lines.empty(), "no line is missing");
        std::string sLine = lines.back();
        lines.pop_back();
        Require(platform::IsValidUtf8(sLine), "a line is text");
        Require(sLine.find_first_of(std::string("\0\r\n", 3)) == std::string::npos, "a line is one line");
        return sLine;
    };
    Require(next() == "Tallyfen Report", "the report says what it is");
    Require(next().starts_with("Genereted on "), "and of when");
    for (const auto& [nMark, sKey] : rows) {
        const int nPlace = nMark > platform::kMarkLast ? nMark - platform::kMarksGone : nMark;
        if (nPlace < platform::kMarkFirst || nPlace > platform::kMarkLast) {
            continue; // an icon that is no group mark
        }
        Require(nPlace != platform::kMarkFirst || next().empty(), "a group begins behind an empty line");
        const std::string sLine = next();
        Require(sLine.starts_with(nPlace == platform::kMarkMiddle ? "| " : "+ "), "a line tells the place");
        Require(NameOf(sLine.substr(2)) == sKey, "a line tells the file");
    }
    Require(next().empty() && next() == "-->" && lines.empty(), "the report ends");
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* pData, std::size_t nSize)
{
    static tProgram program;
    FuzzedDataProvider input(pData, nSize);
    program.main.lvFiles.ListItems.Clear();
    program.user.sOpened.clear();
    const auto rows = FillList(program.main.lvFiles.ListItems, input);
    results::SaveResults();
    if (rows.empty()) {
        Require(program.user.sOpened.empty(), "without rows there is no report");
        return 0;
    }
    Require(program.user.sOpened.find(program.user.sPath) != std::string::npos, "the report is opened");
    std::ostringstream report;
    report << std::ifstream(program.user.sPath, std::ios::binary).rdbuf();
    // Some file systems write a file to disk at once if it was truncated and rewritten.
    std::filesystem::remove(program.user.sPath);
    CheckLines(Lines(report.str()), rows);
    return 0;
}
