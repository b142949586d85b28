// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>

namespace search {

/// Writes to `sFolded` the form of `sText` in which texts are compared: letter case folded, by Unicode for a
/// valid UTF-8 text, for ASCII letters alone for any other. Two texts compare equal if these forms are equal.
void FoldText(std::string_view sText, std::string& sFolded);

/// `sText` with its ASCII letters in lower case and every other byte as it is.
void FoldAscii(std::string_view sText, std::string& sFolded);

/// True if the texts are equal in this sense.
bool TextEqual(std::string_view sFirst, std::string_view sSecond);

} // namespace search
