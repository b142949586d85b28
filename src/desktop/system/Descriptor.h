// SPDX-License-Identifier: MIT
#pragma once

#include <unistd.h>
#include <utility>

namespace desktop {

/// Owns an open file descriptor, or none, and closes it on destruction.
class Descriptor
{
public:
    Descriptor() = default;
    explicit Descriptor(int h) : m_h(h) {}
    Descriptor(Descriptor&& other) noexcept : m_h(std::exchange(other.m_h, -1)) {}
    Descriptor& operator=(Descriptor&& other) noexcept
    {
        std::swap(m_h, other.m_h);
        return *this;
    }
    Descriptor(const Descriptor&) = delete;
    Descriptor& operator=(const Descriptor&) = delete;
    ~Descriptor()
    {
        if (m_h >= 0) {
            close(m_h);
        }
    }

    [[nodiscard]] int Get() const { return m_h; }

    /// Passes ownership to the caller.
    int Release() { return std::exchange(m_h, -1); }
    [[nodiscard]] bool IsOpen() const { return m_h >= 0; }

private:
    int m_h = -1;
};

} // namespace desktop
