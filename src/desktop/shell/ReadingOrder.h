// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <tuple>
#include <vector>

namespace desktop {

/// The sort key of names for display, the same as in a search: hidden ones last, numbers by value.
using tReadingOrder = std::tuple<bool, std::string, std::string>;
tReadingOrder ReadingOrder(std::string sName);

/// Sorts names by that key.
void SortForReading(std::vector<std::string>& names);

} // namespace desktop
