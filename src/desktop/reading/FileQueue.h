// SPDX-License-Identifier: MIT
#pragma once

#include "SearchReading.h"

#include <atomic>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <vector>

namespace desktop {

/// The files of the table that are to be read, and their results. Files are taken in table order, in which
/// they are close together on disk and in memory: in the order in which the search compares them, reading
/// costs twice as much. Results can be read and reported from any thread; all other functions need a lock if
/// threads share the object.
class FileQueue
{
public:
    explicit FileQueue(platform::tFilesToRead files);

    /// The state of entry `n`: Ready and its sum, Failed, or NotYet.
    platform::Answer Look(std::uint32_t n, std::int32_t& nSum) const;

    /// Replaces `entries` with the next entries to read, at most `nMost`: those from ReadFirst, otherwise the
    /// next ones of the table. Empty if nothing is left.
    void Take(std::size_t nMost, std::vector<std::uint32_t>& entries);

    /// True if Take would return entries.
    [[nodiscard]] bool MayTake() const { return m_nFirst < m_first.size() || !Swept(); }

    /// True if all entries in `wanted` have been taken.
    [[nodiscard]] bool Swept() const { return m_nSwept == m_files.wanted.size(); }

    /// True if entries from ReadFirst have not been taken yet.
    [[nodiscard]] bool HasFirst() const { return m_nFirst < m_first.size(); }

    /// Entries to take before all others; replaces those of the last call.
    void ReadFirst(std::vector<std::uint32_t> entries);

    /// To be called when the search asks for entry `n` and its result is not known: a missing file then has
    /// to be created.
    void Asked(std::uint32_t n);

    /// True if no thread is reading or has read entry `n`.
    [[nodiscard]] bool Open(std::uint32_t n) const;
    /// True if the entry is not in `wanted`.
    [[nodiscard]] bool Unforeseen(std::uint32_t n) const;

    enum class Claim { None, Read, Create };
    /// Claims entry `n` for the caller, and returns how to read it; None if another thread is reading or has
    /// read it.
    Claim ClaimEntry(std::uint32_t n);

    /// Stores the result of entry `n`: its sum, or empty if it could not be read.
    void Tell(std::uint32_t n, std::optional<std::int32_t> nSum);
    /// Notes that the file of entry `n` does not exist; it is read again only if the search asks for it.
    void TellGone(std::uint32_t n);

    [[nodiscard]] platform::tFileToRead File(std::uint32_t n) const { return m_files.fileAt(n); }
    [[nodiscard]] std::int32_t SumOf(const std::uint8_t* pFirst, std::size_t nBytes) const
    {
        return m_files.sumOf(pFirst, nBytes);
    }

private:
    platform::tFilesToRead m_files;
    std::size_t m_nSwept = 0; ///< number of entries taken from `wanted`
    std::vector<std::uint32_t> m_first;
    std::size_t m_nFirst = 0; ///< number of entries taken from `m_first`
    /// The state of each entry and, in the low 32 bits, its sum.
    std::unique_ptr<std::atomic<std::uint64_t>[]> m_states;
};

} // namespace desktop
