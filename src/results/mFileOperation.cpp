// SPDX-License-Identifier: MIT
#include "mFileOperation.h"

#include "Escaped.h"
#include "FormMembers.h"
#include "System.h"
#include "mAPIError.h"
#include "mFileInfo.h"

namespace results {
namespace {

/// The highest result with which the shell reports a failure.
constexpr long kLastFailure = 32;

bool RunRequest(unsigned wFunc, const std::string& sFrom, const std::string& sTo, unsigned fFlags)
{
    platform::SHFILEOPSTRUCT request;
    request.hwnd = search::frmMain().form.hWnd();
    request.wFunc = wFunc;
    request.pFrom = sFrom;
    request.pTo = sTo;
    request.fFlags = fFlags;
    return platform::System().shellFiles->SHFileOperationA(request) == 0;
}

void SayCannotOpen(const std::string& sFolder, const std::string& sFile, long nCode)
{
    platform::System().messages->Show("Cannot open " + platform::Escaped(JoinPath(sFolder, sFile)) +
                                          "\r\n\r\n" + GetErrorText(nCode),
                                      platform::MessageIcon::Stop);
}

} // namespace

bool DeleteFiles(const std::string& sFrom)
{
    return RunRequest(platform::FO_DELETE, sFrom, "", platform::FOF_ALLOWUNDO | platform::FOF_SIMPLEPROGRESS);
}

bool MoveFiles(const std::string& sFrom, const std::string& sTo)
{
    return RunRequest(platform::FO_MOVE, sFrom, sTo,
                      platform::FOF_MULTIDESTFILES | platform::FOF_SIMPLEPROGRESS);
}

bool CopyFiles(const std::string& sFrom, const std::string& sTo)
{
    return RunRequest(platform::FO_COPY, sFrom, sTo,
                      platform::FOF_MULTIDESTFILES | platform::FOF_SIMPLEPROGRESS);
}

void OpenDocument(const std::string& sFile, const std::string& sParams, const std::string& sFolder, int nShow)
{
    const long nResult =
        platform::System().launcher->ShellExecuteA(nullptr, "open", sFile, sParams, sFolder, nShow);
    if (nResult == platform::SE_ERR_NOASSOC) {
        OpenWithDialog(sFile);
    } else if (nResult <= kLastFailure) {
        SayCannotOpen(sFolder, sFile, nResult);
    }
}

void RunProgram(const std::string& sProgram, const std::string& sParams, const std::string& sFolder,
                int nShow)
{
    const long nResult =
        platform::System().launcher->ShellExecuteA(nullptr, "open", sProgram, sParams, sFolder, nShow);
    if (nResult <= kLastFailure) {
        SayCannotOpen(sFolder, sProgram, nResult);
    }
}

// The shell reports failures of the next three itself.

void ExploreFolder(platform::WindowHandle hOwner, const std::string& sPath)
{
    platform::System().launcher->ShellExecuteA(hOwner, "open", "explorer.exe", sPath, "",
                                               platform::SW_SHOWNORMAL);
}

void OpenWithDialog(const std::string& sFile)
{
    platform::System().launcher->ShellExecuteA(
        nullptr, "open", "rundll32.exe", "shell32.dll, OpenAs_RunDLL " + sFile, "", platform::SW_SHOWNORMAL);
}

void ShowProperties(platform::WindowHandle hOwner, const std::string& sFile)
{
    platform::SHELLEXECUTEINFO info;
    info.fMask = platform::SEE_MASK_INVOKEIDLIST;
    info.hwnd = hOwner;
    info.lpVerb = "properties";
    info.lpFile = sFile;
    platform::System().launcher->ShellExecuteExA(info);
}

} // namespace results
