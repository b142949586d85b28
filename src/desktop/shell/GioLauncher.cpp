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

/// A path without the double quotes that it may stand in. One that stands in none starts with a separator.
std::string Unquoted(const std::string& sText)
{
    const bool bQuoted = sText.size() > 1 && sText.starts_with('"') && sText.ends_with('"');
    return bQuoted ? sText.substr(1, sText.size() - 2) : sText;
}

/// Opens a file in an application, if there is one.
long StartOn(const std::string& sPath, const std::optional<tApplication>& application)
{
    if (const long nMissing = WhyMissing(sPath)) {
        return nMissing;
    }
    return application ? Start(*application, sPath) : platform::SE_ERR_NOASSOC;
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
    const long nCode = bOtherThing ? ENOTDIR : StartOn(sPath, DefaultApplication({kFolders}));
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
    ProgramChooser(OwnerOf(hwnd), sPath, ApplicationsFor(FileKind(sPath)), [&](const tApplication& chosen) {
        return StartOn(sPath, chosen);
    }).Ask();
    return kStarted; // what was asked for is the question
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
        return StartOn(Unquoted(sParameters), DefaultApplication({"text/plain"}));
    }
    if (sFile == "Wordpad.exe") {
        return StartOn(
            Unquoted(sParameters),
            DefaultApplication({"application/rtf", "text/rtf", "application/vnd.oasis.opendocument.text",
                                "application/vnd.openxmlformats-officedocument.wordprocessingml.document",
                                "application/msword", "application/x-abiword", "text/plain"}));
    }
    const std::string sPath = Unquoted(sFile);
    return StartOn(sPath, DefaultApplication({FileKind(sPath).c_str()}));
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
        (new PropertySheet(OwnerOf(info.hwnd), properties))->show();
    }
    return true;
}

} // namespace desktop
