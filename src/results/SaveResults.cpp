// SPDX-License-Identifier: MIT
#include "SaveResults.h"

#include "Escaped.h"
#include "FileTime.h"
#include "FormMembers.h"
#include "GroupMarks.h"
#include "System.h"
#include "Texts.h"
#include "mCommon.h"
#include "mFileDialog.h"
#include "mFileOperation.h"

#include <string>
#include <string_view>

namespace results {
namespace {

/// The report file, written line by line. Stops at the first line that cannot be written.
class Report
{
public:
    explicit Report(const std::string& sPath)
        : m_hFile(platform::System().textFiles->OpenForOutput(sPath)),
          m_bWritten(m_hFile != platform::INVALID_HANDLE_VALUE)
    {
    }
    Report(const Report&) = delete;
    Report& operator=(const Report&) = delete;
    ~Report()
    {
        if (m_hFile != platform::INVALID_HANDLE_VALUE) {
            platform::System().textFiles->CloseOutput(m_hFile);
        }
    }

    void Line(std::string_view sLine)
    {
        m_bWritten = m_bWritten && platform::System().textFiles->PrintLine(m_hFile, sLine);
    }

private:
    platform::FileHandle m_hFile;
    bool m_bWritten;
};

/// A row's line shows its position in the group, whether or not its file has gone.
void WriteRow(Report& report, const platform::ListItem& row)
{
    const std::string sName = platform::Escaped(row.Key());
    switch (platform::PositionMark(row.SmallIcon())) {
    case platform::kMarkFirst:
        report.Line("");
        [[fallthrough]];
    case platform::kMarkLast:
        report.Line("+ " + sName);
        break;
    case platform::kMarkMiddle:
        report.Line("| " + sName);
        break;
    default:
        break;
    }
}

void WriteReport(const std::string& sPath, platform::ListItems& rows)
{
    Report report(sPath);
    report.Line("Tallyfen Report");
    report.Line("Genereted on " + platform::FormatDateTime(platform::Now()));
    const std::size_t nCount = rows.Count();
    for (std::size_t n = 1; n <= nCount; ++n) {
        WriteRow(report, rows(n));
    }
    report.Line("");
    report.Line("-->");
}

} // namespace

void SaveResults()
{
    search::MainFormMembers& main = search::frmMain();
    if (main.lvFiles.ListItems.Count() == 0) {
        return;
    }
    std::string sInitDir;
    const std::string sPath =
        ShowSaveDialog(main.form.hWnd(), "Text Document (*.txt)|*.txt", "", sInitDir, "Save As");
    if (sPath.empty()) {
        return;
    }
    // The dialog has already asked before replacing an existing file.
    search::SetWorking(true);
    WriteReport(sPath, main.lvFiles.ListItems);
    search::SetWorking(false);
    // Shows the new report, or the reason why there is none.
    RunProgram(sPath, "", "", platform::SW_SHOWNORMAL);
}

} // namespace results
