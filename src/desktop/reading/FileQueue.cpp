// SPDX-License-Identifier: MIT
#include "FileQueue.h"

#include <algorithm>
#include <utility>

namespace desktop {
namespace {

enum tState : std::uint64_t {
    kUnforeseen, // may never be asked for
    kWanted,
    kTaken,
    kGone,    // missing, and not asked for so far
    kMissing, // missing, and asked for
    kFailed,
    kReady
};

constexpr int kSumBits = 32;

tState StateIn(std::uint64_t nState)
{
    return static_cast<tState>(nState >> kSumBits);
}

constexpr std::uint64_t Stored(tState state, std::uint32_t nSum = 0)
{
    return (std::uint64_t{state} << kSumBits) | nSum;
}

} // namespace

FileQueue::FileQueue(platform::tFilesToRead files)
    : m_files(std::move(files)), m_states(std::make_unique<std::atomic<std::uint64_t>[]>(m_files.nTable))
{
    for (const std::uint32_t n : m_files.wanted) {
        m_states[n].store(Stored(kWanted), std::memory_order_relaxed);
    }
}

platform::Answer FileQueue::Look(std::uint32_t n, std::int32_t& nSum) const
{
    const std::uint64_t nState = m_states[n].load(std::memory_order_acquire);
    switch (StateIn(nState)) {
    case kReady:
        nSum = static_cast<std::int32_t>(static_cast<std::uint32_t>(nState));
        return platform::Answer::Ready;
    case kFailed:
        return platform::Answer::Failed;
    default:
        return platform::Answer::NotYet;
    }
}

void FileQueue::Take(std::size_t nMost, std::vector<std::uint32_t>& entries)
{
    const bool bFirst = HasFirst();
    const auto& from = bFirst ? m_first : m_files.wanted;
    std::size_t& nTaken = bFirst ? m_nFirst : m_nSwept;
    const std::size_t nNow = std::min(nMost, from.size() - nTaken);
    const auto begin = from.begin() + static_cast<std::ptrdiff_t>(nTaken);
    entries.assign(begin, begin + static_cast<std::ptrdiff_t>(nNow));
    nTaken += nNow;
}

void FileQueue::ReadFirst(std::vector<std::uint32_t> entries)
{
    m_first = std::move(entries);
    m_nFirst = 0;
}

void FileQueue::Asked(std::uint32_t n)
{
    std::uint64_t nGone = Stored(kGone);
    if (m_states[n].compare_exchange_strong(nGone, Stored(kMissing))) {
        m_first.insert(m_first.begin() + static_cast<std::ptrdiff_t>(m_nFirst), n);
    }
}

bool FileQueue::Open(std::uint32_t n) const
{
    const tState state = StateIn(m_states[n].load());
    return state == kWanted || state == kUnforeseen;
}

bool FileQueue::Unforeseen(std::uint32_t n) const
{
    return StateIn(m_states[n].load()) == kUnforeseen;
}

FileQueue::Claim FileQueue::ClaimEntry(std::uint32_t n)
{
    std::uint64_t nState = m_states[n].load(std::memory_order_relaxed);
    while (StateIn(nState) == kUnforeseen || StateIn(nState) == kWanted || StateIn(nState) == kMissing) {
        if (m_states[n].compare_exchange_weak(nState, Stored(kTaken))) {
            return StateIn(nState) == kMissing ? Claim::Create : Claim::Read;
        }
    }
    return Claim::None;
}

void FileQueue::Tell(std::uint32_t n, std::optional<std::int32_t> nSum)
{
    const std::uint64_t nState = nSum ? Stored(kReady, static_cast<std::uint32_t>(*nSum)) : Stored(kFailed);
    m_states[n].store(nState, std::memory_order_release);
}

void FileQueue::TellGone(std::uint32_t n)
{
    m_states[n].store(Stored(kGone), std::memory_order_release);
}

} // namespace desktop
