// SPDX-License-Identifier: MIT
#include "FileKind.h"

#include "GPointers.h"

namespace desktop {
namespace {

/// The type of an empty file. GIO in Debian 13 gives all empty files a single type, which hardly any program
/// opens; users want to open them as an empty text or table, according to the name.
std::string KindByName(const std::string& sPath)
{
    gboolean bUncertain = FALSE;
    const GText kind(g_content_type_guess(sPath.c_str(), nullptr, 0, &bUncertain));
    return kind && bUncertain == FALSE ? kind.get() : "text/plain";
}

} // namespace

std::string FileKind(const std::string& sPath)
{
    // Without this call GIO initialises its type tables twice and leaks the first ones.
    g_content_type_get_mime_dirs();
    // Restricted to local files: the desktop's other file systems would be queried over the session bus.
    const GPointer<GFile> file(g_vfs_get_file_for_path(g_vfs_get_local(), sPath.c_str()));
    const GPointer<GFileInfo> info(g_file_query_info(file.get(), G_FILE_ATTRIBUTE_STANDARD_CONTENT_TYPE,
                                                     G_FILE_QUERY_INFO_NONE, nullptr, nullptr));
    const char* const pKind = info ? g_file_info_get_content_type(info.get()) : nullptr;
    const std::string sKind = pKind != nullptr ? pKind : "application/octet-stream";
    return sKind == "application/x-zerosize" ? KindByName(sPath) : sKind;
}

std::string KindInWords(const std::string& sKind)
{
    const GText words(g_content_type_get_description(sKind.c_str()));
    return words ? words.get() : sKind;
}

std::string FileUri(const std::string& sPath)
{
    const GText uri(g_filename_to_uri(sPath.c_str(), nullptr, nullptr));
    return uri ? uri.get() : std::string();
}

} // namespace desktop
