// SPDX-License-Identifier: MIT
#include "mFileDialog.h"

#include "System.h"
#include "mFileInfo.h"

#include <algorithm>
#include <string_view>

namespace results {
namespace {

/// The minimum buffer size that the dialog expects.
constexpr std::size_t kMaxFile = 260;

} // namespace

std::string ShowSaveDialog(platform::WindowHandle hOwner, const std::string& sFilter,
                           const std::string& sFileName, std::string& sInitDir, const std::string& sTitle)
{
    // The buffer with the proposed name also receives the chosen path.
    platform::OPENFILENAME request;
    request.hwndOwner = hOwner;
    request.lpstrFilter = FilterToNulls(sFilter);
    request.nFilterIndex = 1;
    request.lpstrFile = SafeFileName(sFileName);
    request.lpstrFile.resize(std::max(kMaxFile, sFileName.size()), '\0');
    request.lpstrInitialDir = sInitDir;
    request.lpstrTitle = sTitle;
    request.Flags = platform::OFN_OVERWRITEPROMPT | platform::OFN_HIDEREADONLY | platform::OFN_NOCHANGEDIR |
                    platform::OFN_EXPLORER | platform::OFN_LONGNAMES;
    request.lpstrDefExt = FilterExtension(request.lpstrFilter);
    // A dialog that fails is treated like one that was cancelled.
    if (!platform::System().dialogs->GetSaveFileNameA(request)) {
        return {};
    }
    // The next dialog starts in the same folder.
    std::string sPath = CutAtNull(request.lpstrFile);
    sInitDir = ParentFolder(sPath, false);
    return sPath;
}

std::string FilterToNulls(std::string sFilter)
{
    sFilter += '\0';
    std::replace(sFilter.begin(), sFilter.end(), '|', '\0');
    return sFilter;
}

std::string FilterExtension(const std::string& sFilter)
{
    constexpr std::size_t kLength = 3;
    const std::size_t nDot = sFilter.find('.');
    return sFilter.substr(nDot == std::string::npos ? 0 : nDot + 1, kLength);
}

std::string CutAtNull(const std::string& sText)
{
    const std::size_t nEnd = sText.find('\0');
    if (nEnd != std::string::npos) {
        return sText.substr(0, nEnd);
    }
    const std::size_t nFirst = sText.find_first_not_of(' ');
    const std::size_t nLast = sText.find_last_not_of(' ');
    return nFirst == std::string::npos ? std::string() : sText.substr(nFirst, nLast - nFirst + 1);
}

std::string SafeFileName(std::string sName)
{
    constexpr std::string_view kRefused = "/\\:?<>|\"";
    std::replace_if(
        sName.begin(), sName.end(), [&](char c) { return kRefused.find(c) != std::string_view::npos; }, '_');
    return sName;
}

} // namespace results
