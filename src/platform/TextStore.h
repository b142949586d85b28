// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <memory>
#include <string_view>
#include <vector>

namespace platform {

/// A text that a TextStore keeps, in the size of a pointer. Valid as long as the store keeps it.
class StoredText
{
public:
    StoredText() = default; ///< the empty text

    [[nodiscard]] std::string_view View() const
    {
        if (m_pLength == nullptr) {
            return {};
        }
        std::uint32_t nLength = 0;
        std::memcpy(&nLength, m_pLength, sizeof nLength);
        return {m_pLength + sizeof nLength, nLength};
    }

    /// True if both are the very same text of one store; equal texts stored twice are not.
    [[nodiscard]] bool SameAs(StoredText other) const { return m_pLength == other.m_pLength; }

private:
    friend class TextStore;
    explicit StoredText(const char* pLength) : m_pLength(pLength) {}

    const char* m_pLength = nullptr; ///< four bytes of length, then the characters
};

/// Keeps many short texts in few blocks of memory: four bytes and no allocation for each.
class TextStore
{
public:
    /// Copies a text of less than 4 GiB.
    StoredText Add(std::string_view sText);

    /// Drops all texts.
    void Clear();

private:
    std::vector<std::unique_ptr<char[]>> m_blocks;
    char* m_pFree = nullptr;
    std::size_t m_nFree = 0;
};

} // namespace platform
