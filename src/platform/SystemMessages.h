// SPDX-License-Identifier: MIT
#pragma once

#include <string>

namespace platform {

/// The system's message for an error code, in the user's language; empty for a code without a message.
std::string SystemMessage(long nCode);

/// Writes that message, and a NUL, over the start of `sBuffer`, truncated to its size. Writes nothing for a
/// code without a message. The only flag is FORMAT_MESSAGE_FROM_SYSTEM; the language is always the user's.
inline constexpr unsigned FORMAT_MESSAGE_FROM_SYSTEM = 4096;
void FormatMessageA(unsigned dwFlags, long dwMessageId, unsigned dwLanguageId, std::string& sBuffer);

} // namespace platform
