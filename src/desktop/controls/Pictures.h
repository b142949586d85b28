// SPDX-License-Identifier: MIT
#pragma once

#include <QIcon>
#include <string>

namespace desktop {

/// The drawing of that name, crisp at any size; an empty icon for a name without a drawing.
QIcon Picture(const std::string& sName);

} // namespace desktop
