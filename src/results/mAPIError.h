// SPDX-License-Identifier: MIT
#pragma once

#include <string>

namespace results {

/// The system's message for error code `nCode`, including its line end; "Unknown error." if there is none.
std::string GetErrorText(long nCode);

} // namespace results
