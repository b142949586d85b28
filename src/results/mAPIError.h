// SPDX-License-Identifier: MIT
#pragma once

#include <string>

namespace results {

/// The system's text for error code `nCode`, with the line end that the system gives it; "Unknown error." if
/// it has none.
std::string GetErrorText(long nCode);

} // namespace results
