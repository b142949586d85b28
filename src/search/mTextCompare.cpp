// SPDX-License-Identifier: MIT
#include "mTextCompare.h"

#include "Texts.h"
#include "Utf8.h"

#include <algorithm>

namespace search {

void FoldAscii(std::string_view sText, std::string& sFolded)
{
    sFolded.resize(sText.size());
    std::transform(sText.begin(), sText.end(), sFolded.begin(),
                   [](char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; });
}

void FoldText(std::string_view sText, std::string& sFolded)
{
    if (platform::IsAscii(sText) || !platform::IsValidUtf8(sText)) {
        FoldAscii(sText, sFolded);
    } else {
        sFolded = platform::FoldCase(sText);
    }
}

} // namespace search
