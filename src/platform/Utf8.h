// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <string_view>

// Texts are bytes. Where characters matter, they are interpreted as UTF-8, and each byte that is not part of
// a valid sequence counts as one character.

namespace platform {

/// The length in bytes, 1 to 4, of the first character of `sText`, which must not be empty.
std::size_t CharLength(std::string_view sText);

/// True if `sText`, which must not be empty, starts with a valid sequence.
bool ValidChar(std::string_view sText);

/// The number of characters.
std::size_t CountChars(std::string_view sText);

/// The first `nChars` characters, or the whole text if it has fewer.
std::string_view LeftChars(std::string_view sText, std::size_t nChars);

/// The last `nChars` characters, or the whole text if it has fewer.
std::string_view RightChars(std::string_view sText, std::size_t nChars);

/// True if every byte is below 128.
bool IsAscii(std::string_view sText);

/// True if the whole text is valid UTF-8.
bool IsValidUtf8(std::string_view sText);

} // namespace platform
