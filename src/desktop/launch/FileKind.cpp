#include "FileKind.h"

#include "GPointers.h"

namespace desktop {

std::string FileKind(const std::string& sPath)
{
    // Else GIO sets its tables of kinds up twice, and loses the first ones.
    g_content_type_get_mime_dirs();
    // Of this machine's files only: the desktop's other file systems would be asked for over the session bus.
    const GPointer<GFile> file(g_vfs_get_file_for_path(g_vfs_get_local(), sPath.c_str()));
    const GPointer<GFileInfo> info(g_file_query_info(file.get(), G_FILE_ATTRIBUTE_STANDARD_CONTENT_TYPE,
                                                     G_FILE_QUERY_INFO_NONE, nullptr, nullptr));
    const char* const pKind = info ? g_file_info_get_content_type(info.get()) : nullptr;
    return pKind != nullptr ? pKind : "application/octet-stream";
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
