// SPDX-License-Identifier: MIT
#pragma once

namespace desktop {

/// True if the session has a message bus already. To ask for one where there is none would start one, which
/// then stays behind.
bool HasSessionBus();

/// Sees to it that no library of this program starts a bus in a session without one. Called first in `main`,
/// before there are threads. What this program starts does not notice.
void StartNoSessionBus();

} // namespace desktop
