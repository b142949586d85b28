#include "TrashInfo.h"

#include "Descriptor.h"
#include "FileSystem.h"
#include "Retried.h"

#include <array>
#include <fcntl.h>
#include <glib.h>
#include <memory>
#include <string_view>

namespace desktop {
namespace {

/// What is in the file; empty if it cannot be read.
std::string ContentOf(const std::string& sPath)
{
    std::string sContent;
    const Descriptor file(Retried([&] { return open(sPath.c_str(), O_RDONLY | O_NOFOLLOW | O_CLOEXEC); }));
    std::array<char, 4096> aBuffer{};
    ssize_t nRead = file.IsOpen() ? 1 : 0;
    while (nRead > 0) {
        nRead = Retried([&] { return read(file.Get(), aBuffer.data(), aBuffer.size()); });
        if (nRead < 0) {
            return {};
        }
        sContent.append(aBuffer.data(), static_cast<std::size_t>(nRead));
    }
    return sContent;
}

/// The value of `sKey` in a text of lines that each end; empty if there is none.
std::string ValueOf(std::string_view sText, std::string_view sKey)
{
    const std::size_t nKey = sText.find(sKey);
    if (nKey == std::string_view::npos) {
        return {};
    }
    const std::size_t nValue = nKey + sKey.size();
    const std::size_t nEnd = sText.find('\n', nValue);
    return nEnd == std::string_view::npos ? std::string() : std::string(sText.substr(nValue, nEnd - nValue));
}

} // namespace

bool IsWholeTrashInfo(const std::string& sInfoPath, const std::string& sPath)
{
    const std::string sContent = ContentOf(sInfoPath);
    if (!sContent.starts_with("[Trash Info]\n") || ValueOf(sContent, "\nDeletionDate=").empty()) {
        return false;
    }
    const std::unique_ptr<char, decltype(&g_free)> pNamed(
        g_uri_unescape_string(ValueOf(sContent, "\nPath=").c_str(), nullptr), &g_free);
    const std::string sNamed = pNamed ? pNamed.get() : "";
    return !sNamed.empty() && (sNamed == sPath || sPath.ends_with(platform::kSeparator + sNamed));
}

} // namespace desktop
