#pragma once

#include <cstddef>

namespace platform {

/// The size in bytes of a large page of memory, and what it has to be aligned to.
inline constexpr std::size_t kLargePage = std::size_t{2} << 20;

/// Asks the system to provide `nBytes` bytes from `pFirst` on in large pages, each at its first use. Nothing
/// depends on it.
void UseLargePages(void* pFirst, std::size_t nBytes);

} // namespace platform
