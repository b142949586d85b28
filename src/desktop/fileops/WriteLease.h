// SPDX-License-Identifier: MIT
#pragma once

namespace desktop {

/// True if somebody has the file open or mapped for writing, who could write to it without any further trace.
/// `h` is open for reading only. False also where the system does not tell: of files of others, and on some
/// file systems.
bool IsOpenForWriting(int h);

} // namespace desktop
