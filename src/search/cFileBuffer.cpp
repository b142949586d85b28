#include "cFileBuffer.h"

#include <algorithm>
#include <new>

namespace search {
namespace {

/// At once the room that any file of a search needs, so that it need not grow: pages that are never written
/// to take no memory.
constexpr std::size_t kUsualRoom = std::size_t{10} << 20;

} // namespace

std::uint8_t* cFileBuffer::Reserve(std::size_t nBytes)
{
    if (m_nRoom < nBytes || !m_aBytes) {
        Release();
        const std::size_t nRoom = std::max(nBytes, kUsualRoom);
        m_aBytes.reset(new (std::nothrow) std::uint8_t[nRoom]);
        m_nRoom = m_aBytes ? nRoom : 0;
    }
    return m_aBytes.get();
}

void cFileBuffer::Release()
{
    m_aBytes.reset();
    m_nRoom = 0;
}

} // namespace search
