#include "LargePages.h"

#include <sys/mman.h>

namespace platform {

void UseLargePages(void* pFirst, std::size_t nBytes)
{
    // A system without large pages says so, and gives small ones.
    madvise(pFirst, nBytes, MADV_HUGEPAGE);
}

} // namespace platform
