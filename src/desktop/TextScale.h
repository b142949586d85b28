// SPDX-License-Identifier: MIT
#pragma once

namespace desktop {

/// The desktop's text scaling factor, as far as the toolkit does not apply it itself. Limited to what fits on
/// the screen.
double TextScale();

} // namespace desktop
