#include "cFileBuffer.h"

#include "LargePages.h"
#include "mCommon.h"

#include <algorithm>

namespace search {
namespace {

/// At once the room that any file of a search needs, so that it need not grow: pages that are never written
/// to take no memory.
constexpr auto kUsualRoom = static_cast<std::size_t>(kMaxComparedSize);

} // namespace

std::uint8_t* cFileBuffer::Reserve(std::size_t nBytes)
{
    if (m_nRoom < nBytes || !m_aBytes) {
        Release();
        const std::size_t nPages = std::max(nBytes, kUsualRoom) / platform::kLargePage + 1;
        const std::size_t nRoom = nPages * platform::kLargePage;
        m_aBytes.reset(static_cast<std::uint8_t*>(std::aligned_alloc(platform::kLargePage, nRoom)));
        m_nRoom = m_aBytes ? nRoom : 0;
        platform::UseLargePages(m_aBytes.get(), m_nRoom);
    }
    return m_aBytes.get();
}

void cFileBuffer::Release()
{
    m_aBytes.reset();
    m_nRoom = 0;
}

} // namespace search
