// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>

namespace search {

/// Writes the form of `sText` that is compared to `sFolded`: case-folded by Unicode rules if `sText` is valid
/// UTF-8, otherwise for ASCII letters only. Two texts are equal if these forms are.
void FoldText(std::string_view sText, std::string& sFolded);

/// `sText` with ASCII letters in lower case and all other bytes unchanged.
void FoldAscii(std::string_view sText, std::string& sFolded);

} // namespace search
