// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <tuple>
#include <vector>

namespace desktop {

/// What the names in a folder are ordered by where a person reads them, as a search lists them: hidden ones
/// last, numbers by their value.
using tReadingOrder = std::tuple<bool, std::string, std::string>;
tReadingOrder ReadingOrder(std::string sName);

void SortForReading(std::vector<std::string>& names);

} // namespace desktop
