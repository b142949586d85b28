// SPDX-License-Identifier: MIT
#pragma once

#include "FileSystem.h"

#include <cstdint>
#include <string>
#include <string_view>

namespace search {

/// The number of characters that a label of the progress window has room for.
inline constexpr std::int16_t kLabelWidth = 57;

/// `sPath` shortened for display to at most `nWidth` characters: its beginning, "...", and its last part.
/// With `bTrailing` a shortened result ends in a separator; where the path is only its own trailing separator
/// too long, that result has `nWidth` + 1 characters. Never cuts within a character.
std::string CompactPath(std::string_view sPath, std::int16_t nWidth, bool bTrailing,
                        char cSeparator = platform::kSeparator);

/// What a label of the progress window shows of `sPath`: the whole of it, shortened if it has no room.
std::string LabelText(std::string_view sPath);

} // namespace search
