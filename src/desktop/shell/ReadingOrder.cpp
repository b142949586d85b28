// SPDX-License-Identifier: MIT
#include "ReadingOrder.h"

#include "ListingOrder.h"

#include <algorithm>
#include <utility>

namespace desktop {

tReadingOrder ReadingOrder(std::string sName)
{
    std::string sKey = platform::NameKey(sName);
    return {sName.starts_with('.'), std::move(sKey), std::move(sName)};
}

void SortForReading(std::vector<std::string>& names)
{
    std::vector<tReadingOrder> ordered;
    ordered.reserve(names.size());
    for (std::string& sName : names) {
        ordered.push_back(ReadingOrder(std::move(sName)));
    }
    std::sort(ordered.begin(), ordered.end());
    std::transform(ordered.begin(), ordered.end(), names.begin(),
                   [](auto& each) { return std::move(std::get<2>(each)); });
}

} // namespace desktop
