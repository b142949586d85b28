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

/// The files of a table that are to be read, and what came of each. They are taken in the table's order, in
/// which they lie near each other on the disk and in memory: in the order in which the search compares them
/// reading costs twice as much. What each file came to may be asked and told on any thread; for the rest
/// whoever shares this between threads locks.
class FileQueue
{
public:
    explicit FileQueue(platform::tFilesToRead files);

    /// What is known of entry `n`: Ready and its sum, Failed, or NotYet.
    platform::Answer Look(std::uint32_t n, std::int32_t& nSum) const;

    /// The next entries to read, `nMost` at most: those to be read first, else the next ones of the table.
    /// Replaces what `entries` held; empty if there is nothing to read.
    void Take(std::size_t nMost, std::vector<std::uint32_t>& entries);

    /// True if Take would give something.
    [[nodiscard]] bool MayTake() const { return m_nFirst < m_first.size() || !Swept(); }

    /// True if all entries wanted for sure have been taken.
    [[nodiscard]] bool Swept() const { return m_nSwept == m_files.wanted.size(); }

    /// True if entries that were to be read first have not been taken yet.
    [[nodiscard]] bool HasFirst() const { return m_nFirst < m_first.size(); }

    void ReadFirst(std::vector<std::uint32_t> entries);

    /// The search asks for entry `n`, of which nothing is known yet: one that has gone is to be created.
    void Asked(std::uint32_t n);

    /// True if nobody is reading entry `n`.
    [[nodiscard]] bool Open(std::uint32_t n) const;
    /// True if the entry is not among those wanted for sure.
    [[nodiscard]] bool Unforeseen(std::uint32_t n) const;

    enum class Claim { None, Read, Create };
    /// Makes the caller the one to read entry `n`, and says how; None if another is or has been.
    Claim ClaimEntry(std::uint32_t n);

    void Tell(std::uint32_t n, std::optional<std::int32_t> nSum);
    void TellGone(std::uint32_t n);

    [[nodiscard]] platform::tFileToRead File(std::uint32_t n) const { return m_files.fileAt(n); }
    [[nodiscard]] std::int32_t SumOf(const std::uint8_t* pFirst, std::size_t nBytes) const
    {
        return m_files.sumOf(pFirst, nBytes);
    }

private:
    platform::tFilesToRead m_files;
    std::size_t m_nSwept = 0; ///< so many of those wanted have been taken
    std::vector<std::uint32_t> m_first;
    std::size_t m_nFirst = 0; ///< so many of these have been taken
    /// For each entry how far it is, and behind that its sum.
    std::unique_ptr<std::atomic<std::uint64_t>[]> m_states;
};

} // namespace desktop
