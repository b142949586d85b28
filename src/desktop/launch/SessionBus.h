// SPDX-License-Identifier: MIT
#pragma once

namespace desktop {

/// True if the session already has a message bus. Connecting without this check could start one, which would
/// stay behind.
bool HasSessionBus();

/// Prevents the libraries of this program from starting a bus in a session without one. Must be called first
/// in `main`, before there are threads. Programs started by this one are not affected.
void StartNoSessionBus();

} // namespace desktop
