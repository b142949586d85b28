// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <string_view>

// Texts are bytes. Where characters matter they are taken as UTF-8, and a byte that is part of no valid
// sequence counts as one character of its own.

namespace platform {

/// The length in bytes of the character at the start of `sText`, which is not empty: 1 to 4.
std::size_t CharLength(std::string_view sText);

/// True if the first byte of `sText`, which is not empty, starts a valid sequence.
bool ValidChar(std::string_view sText);

/// The number of characters.
std::size_t CountChars(std::string_view sText);

/// The first `nChars` characters, or all of a text that has fewer.
std::string_view LeftChars(std::string_view sText, std::size_t nChars);

/// The last `nChars` characters, or all of a text that has fewer.
std::string_view RightChars(std::string_view sText, std::size_t nChars);

/// True if every byte is below 128.
bool IsAscii(std::string_view sText);

/// True if the whole text is valid UTF-8.
bool IsValidUtf8(std::string_view sText);

} // namespace platform
