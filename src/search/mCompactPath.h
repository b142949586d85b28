// SPDX-License-Identifier: MIT
#pragma once

#include "Paths.h"

#include <cstdint>
#include <string>
#include <string_view>

namespace search {

/// The number of characters that fit in a label of the progress window.
inline constexpr std::int16_t kLabelWidth = 57;

/// Shortens `sPath` for display to at most `nWidth` characters: the beginning, "...", and the last part. With
/// `bTrailing` a shortened result ends in a separator. If the path is too long only by its own trailing
/// separator, the result has `nWidth` + 1 characters. Never cuts within a character.
std::string CompactPath(std::string_view sPath, std::int16_t nWidth, bool bTrailing,
                        char cSeparator = platform::kSeparator);

/// The text of a progress window label for `sPath`: the path, shortened if it does not fit.
std::string LabelText(std::string_view sPath);

} // namespace search
