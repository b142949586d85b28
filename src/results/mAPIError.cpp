// SPDX-License-Identifier: MIT
#include "mAPIError.h"

#include "SystemMessages.h"

namespace results {

std::string GetErrorText(long nCode)
{
    constexpr std::size_t kLongestText = 255;
    std::string sBuffer(kLongestText, '\0');
    platform::FormatMessageA(platform::FORMAT_MESSAGE_FROM_SYSTEM, nCode, 0, sBuffer);
    const std::string sText = sBuffer.substr(0, sBuffer.find('\0'));
    return sText.empty() ? "Unknown error." : sText;
}

} // namespace results
