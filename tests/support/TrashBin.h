#pragma once

#include "TempTree.h"

#include <glib.h>
#include <map>
#include <set>

namespace support {

/// The files directly in a folder and what is in them; none if there is no folder.
inline std::map<std::string, std::string> Contents(const std::string& sFolder)
{
    std::map<std::string, std::string> contents;
    std::error_code error;
    for (const auto& entry : std::filesystem::directory_iterator(sFolder, error)) {
        if (entry.is_regular_file()) {
            contents[entry.path().filename().string()] = Content(entry.path().string());
        }
    }
    return contents;
}

/// What can be restored from the trash `sTrash`: pairs of the path noted and the content.
inline std::multiset<std::pair<std::string, std::string>> Restorable(const std::string& sTrash)
{
    std::multiset<std::pair<std::string, std::string>> restorable;
    const auto files = Contents(sTrash + "/files");
    for (const auto& [sInfo, sNote] : Contents(sTrash + "/info")) {
        const auto file = files.find(sInfo.substr(0, sInfo.rfind('.')));
        const std::string sStart = "[Trash Info]\nPath=";
        if (file != files.end() && sNote.starts_with(sStart) &&
            sNote.find("\nDeletionDate=2") != std::string::npos) {
            const std::string sEscaped =
                sNote.substr(sStart.size(), sNote.find('\n', sStart.size()) - sStart.size());
            char* pPath = g_uri_unescape_string(sEscaped.c_str(), nullptr);
            restorable.emplace(pPath != nullptr ? pPath : "", file->second);
            g_free(pPath);
        }
    }
    return restorable;
}

/// The home of this test program, on the volume of which files go to the home trash.
inline std::string Home()
{
    return std::getenv("HOME");
}

/// The home trash of this test program.
inline std::string HomeTrash()
{
    return std::string(std::getenv("XDG_DATA_HOME")) + "/Trash";
}

} // namespace support
