// SPDX-License-Identifier: MIT
#include "SystemMessages.h"

#include "Launching.h"
#include "Utf8.h"

#include <array>
#include <climits>
#include <cstring>

namespace platform {
namespace {

/// The longest prefix of `sText` of whole characters that fits in `nBytes` bytes.
std::string_view Cut(std::string_view sText, std::size_t nBytes)
{
    std::size_t nEnd = 0;
    while (nEnd < sText.size() && nEnd + CharLength(sText.substr(nEnd)) <= nBytes) {
        nEnd += CharLength(sText.substr(nEnd));
    }
    return sText.substr(0, nEnd);
}

} // namespace

std::string SystemMessage(long nCode)
{
    // This code is the shell's own: the system's message for the same number is about links.
    if (nCode == SE_ERR_NOASSOC) {
        return "No application is registered for files of this kind.";
    }
    // strerrordesc_np tells which codes exist, the other function returns the text in the user's language.
    if (nCode < 0 || nCode > INT_MAX || strerrordesc_np(static_cast<int>(nCode)) == nullptr) {
        return {};
    }
    std::array<char, 256> text{};
    return strerror_r(static_cast<int>(nCode), text.data(), text.size());
}

void FormatMessageA(unsigned dwFlags, long dwMessageId, unsigned /*dwLanguageId*/, std::string& sBuffer)
{
    const std::string sText =
        (dwFlags & FORMAT_MESSAGE_FROM_SYSTEM) != 0 ? SystemMessage(dwMessageId) : std::string();
    if (sText.empty() || sBuffer.empty()) {
        return;
    }
    const std::string_view sPart = Cut(sText, sBuffer.size() - 1);
    sBuffer.replace(0, sPart.size(), sPart);
    sBuffer[sPart.size()] = '\0';
}

} // namespace platform
