// SPDX-License-Identifier: MIT
#pragma once

#include <QIcon>
#include <string>

namespace desktop {

/// The icon of this name, sharp at any size; an empty icon if there is none.
QIcon Picture(const std::string& sName);

} // namespace desktop
