// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <memory>
#include <string_view>
#include <vector>

namespace platform {

/// A text kept by a TextStore, the size of a pointer. Valid as long as the store keeps the text.
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

    /// True if both refer to the same stored text. Equal texts that were added twice are not the same.
    [[nodiscard]] bool SameAs(StoredText other) const { return m_pLength == other.m_pLength; }

private:
    friend class TextStore;
    explicit StoredText(const char* pLength) : m_pLength(pLength) {}

    const char* m_pLength = nullptr; ///< four bytes of length, then the characters
};

/// Stores many short texts in a few blocks of memory, with an overhead of four bytes and no allocation for
/// each.
class TextStore
{
public:
    /// Copies a text shorter than 4 GiB.
    StoredText Add(std::string_view sText);

    /// Drops all texts.
    void Clear();

private:
    std::vector<std::unique_ptr<char[]>> m_blocks;
    char* m_pFree = nullptr;
    std::size_t m_nFree = 0;
};

} // namespace platform
