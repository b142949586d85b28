// SPDX-License-Identifier: MIT
#include "mFileInfo.h"

#include "System.h"

namespace results {
namespace {

bool HasDriveLetter(std::string_view sFolder)
{
    const char c = sFolder.empty() ? ' ' : sFolder[0];
    const bool bLetter = (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z');
    return bLetter && sFolder.substr(1).starts_with(':');
}

} // namespace

bool FileExists(const std::string& sPath)
{
    return !sPath.empty() &&
           platform::System().shellFiles->SHGetFileInfoA(sPath, 0, platform::SHGFI_DISPLAYNAME) != 0;
}

std::string JoinPath(const std::string& sFolder, const std::string& sFile, char cSeparator)
{
    if (sFolder.empty()) {
        return sFile;
    }
    return sFolder.back() == cSeparator ? sFolder + sFile : sFolder + cSeparator + sFile;
}

std::string ParentFolder(std::string sPathName, bool bTrailing, char cSeparator)
{
    if (sPathName.ends_with(cSeparator)) {
        sPathName.pop_back();
    }
    const std::size_t nLast = sPathName.rfind(cSeparator);
    return nLast == std::string::npos ? std::string() : sPathName.substr(0, bTrailing ? nLast + 1 : nLast);
}

std::string DriveOf(const std::string& sFolder, char cSeparator)
{
    if (HasDriveLetter(sFolder) || sFolder.starts_with(std::string(2, cSeparator))) {
        return sFolder.substr(0, 2);
    }
    return sFolder.empty() ? std::string() : platform::System().volumes->FileSystemOf(sFolder);
}

} // namespace results
