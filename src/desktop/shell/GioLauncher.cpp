// SPDX-License-Identifier: MIT
#include "GioLauncher.h"

#include "Applications.h"
#include "FileKind.h"
#include "FileManager.h"
#include "LaunchCode.h"
#include "ProgramChooser.h"
#include "PropertySheet.h"
#include "Questions.h"
#include "ShownText.h"

#include <cerrno>
#include <sys/stat.h>

namespace desktop {
namespace {

constexpr const char* kFolders = "inode/directory";

/// Removes the double quotes around a path, if any. A path without quotes starts with a separator.
std::string Unquoted(const std::string& sText)
{
    const bool bQuoted = sText.size() > 1 && sText.starts_with('"') && sText.ends_with('"');
    return bQuoted ? sText.substr(1, sText.size() - 2) : sText;
}

/// Starts the first application that can be started; skips those that lack a terminal.
long StartFirst(const std::vector<tApplication>& applications, const std::string& sPath)
{
    for (const tApplication& each : applications) {
        const long nCode = Start(each, sPath);
        if (nCode != kNoTerminal) {
            return nCode;
        }
    }
    return platform::SE_ERR_NOASSOC;
}

/// Opens a file, which must exist.
long Open(const std::string& sPath, const std::vector<tApplication>& applications)
{
    const long nMissing = WhyMissing(sPath);
    return nMissing != 0 ? nMissing : StartFirst(applications, sPath);
}

/// Starts an editor. The editor handles a missing file itself, so the only thing that can be missing here is
/// the editor.
long Edit(const std::string& sPath, std::initializer_list<const char*> kinds)
{
    const long nCode = StartFirst(ApplicationsFor(kinds), sPath);
    return nCode == platform::SE_ERR_NOASSOC ? kNoSuchFile : nCode;
}

void SayCannotOpen(platform::WindowHandle hwnd, const std::string& sPath, long nCode)
{
    SayFault(OwnerOf(hwnd), QStringLiteral("launchFault"),
             QStringLiteral("\u201c%1\u201d cannot be opened.\n%2")
                 .arg(ShownText(sPath), QString::fromStdString(CodeInWords(nCode))));
}

long Explore(platform::WindowHandle hwnd, const std::string& sPath)
{
    struct stat status = {};
    const bool bOtherThing = stat(sPath.c_str(), &status) == 0 && !S_ISDIR(status.st_mode);
    const long nCode = bOtherThing ? ENOTDIR : Open(sPath, ApplicationsFor({kFolders}));
    if (nCode != kStarted && !sPath.empty()) {
        SayCannotOpen(hwnd, sPath, nCode);
    }
    return nCode;
}

long ChooseProgram(platform::WindowHandle hwnd, const std::string& sPath)
{
    if (const long nMissing = WhyMissing(sPath)) {
        if (!sPath.empty()) {
            SayCannotOpen(hwnd, sPath, nMissing);
        }
        return nMissing;
    }
    (new ProgramChooser(OwnerOf(hwnd), sPath, ApplicationsToChoose(FileKind(sPath)),
                        [sPath](const tApplication& chosen) {
                            const long nNowMissing = WhyMissing(sPath);
                            return nNowMissing != 0 ? nNowMissing : Start(chosen, sPath);
                        }))
        ->ShowUp();
    return kStarted; // the request was to ask the user
}

} // namespace

long GioLauncher::ShellExecuteA(platform::WindowHandle hwnd, const std::string& sVerb,
                                const std::string& sFile, const std::string& sParameters,
                                const std::string& /*sDirectory*/, int /*nShowCmd*/)
{
    constexpr std::string_view kOpenWith = "shell32.dll, OpenAs_RunDLL ";
    if (sVerb != "open" && !sVerb.empty()) {
        return platform::SE_ERR_NOASSOC;
    }
    if (sFile == "rundll32.exe" && sParameters.starts_with(kOpenWith)) {
        return ChooseProgram(hwnd, Unquoted(sParameters.substr(kOpenWith.size())));
    }
    if (sFile == "explorer.exe") {
        return Explore(hwnd, Unquoted(sParameters));
    }
    if (sFile == "Notepad.exe") {
        return Edit(Unquoted(sParameters), {"text/plain"});
    }
    if (sFile == "Wordpad.exe") {
        return Edit(Unquoted(sParameters),
                    {"application/rtf", "text/rtf", "application/vnd.oasis.opendocument.text",
                     "application/vnd.openxmlformats-officedocument.wordprocessingml.document",
                     "application/msword", "application/x-abiword", "text/plain"});
    }
    const std::string sPath = Unquoted(sFile);
    return Open(sPath, ApplicationsFor({FileKind(sPath).c_str()}));
}

bool GioLauncher::ShellExecuteExA(const platform::SHELLEXECUTEINFO& info)
{
    const std::string sPath = Unquoted(info.lpFile);
    if (info.lpVerb != "properties" || sPath.empty()) {
        return false;
    }
    const tProperties properties = PropertiesOf(sPath);
    if (properties.empty()) {
        const long nMissing = WhyMissing(sPath);
        SayCannotOpen(info.hwnd, sPath, nMissing != 0 ? nMissing : kNoSuchFile);
        return false;
    }
    if (!ShowItemProperties(sPath)) {
        PropertySheet::Show(OwnerOf(info.hwnd), sPath, properties);
    }
    return true;
}

} // namespace desktop
