// SPDX-License-Identifier: MIT
#pragma once

namespace desktop {

/// How many times the usual size the desktop wants texts to have, beyond what the toolkit sees to by itself.
/// No more than the screen has room for.
double TextScale();

} // namespace desktop
