// SPDX-License-Identifier: MIT
#include "Worker.h"

#include "FileAccess.h"

#include <algorithm>
#include <cerrno>
#include <chrono>
#include <mutex>

namespace desktop {
namespace {

using namespace std::chrono_literals;

constexpr std::size_t kFirstAtATime = 16;
constexpr std::size_t kMostAtATime = 256;

} // namespace

Worker::Worker(BufferPool& buffers, std::shared_mutex& tableInUse, const std::atomic<bool>& bEnded)
    : m_buffers(buffers), m_tableInUse(tableInUse), m_bEnded(bEnded), m_nAtATime(kFirstAtATime)
{
}

void Worker::Read(FileQueue& files)
{
    if (!LookUp(files)) {
        return;
    }
    const auto began = std::chrono::steady_clock::now();
    std::string sPath;
    std::size_t nPath = 0;
    for (const tFile& file : m_files) {
        if (m_bEnded) {
            return;
        }
        sPath.assign(m_sPaths, nPath, file.nPathEnd - nPath);
        nPath = file.nPathEnd;
        ReadOne(files, file, sPath);
    }
    const auto took = std::chrono::steady_clock::now() - began;
    if (took > 4ms) {
        m_nAtATime = std::max<std::size_t>(m_nAtATime / 2, 1);
    } else if (took < 2ms && entries.size() >= m_nAtATime) {
        m_nAtATime = std::min(2 * m_nAtATime, kMostAtATime);
    }
}

/// Copies the table's data on the current files; false if the table must not be accessed any more.
bool Worker::LookUp(const FileQueue& files)
{
    m_files.clear();
    m_sPaths.clear();
    const std::shared_lock lock(m_tableInUse);
    if (m_bEnded) {
        return false;
    }
    for (const std::uint32_t n : entries) {
        const platform::tFileToRead file = files.File(n);
        m_sPaths.append(file.sFolder).append(file.sName);
        m_files.push_back({n, m_sPaths.size(), static_cast<std::size_t>(file.nBytes)});
    }
    return true;
}

void Worker::ReadOne(FileQueue& files, const tFile& file, const std::string& sPath)
{
    const FileQueue::Claim claim = files.ClaimEntry(file.n);
    if (claim == FileQueue::Claim::None) {
        return;
    }
    const bool bCreate = claim == FileQueue::Claim::Create;
    const Descriptor opened = bCreate ? CreateFile(sPath) : OpenFile(sPath);
    if (opened.IsOpen()) {
        files.Tell(file.n, SumOf(files, opened.Get(), file.nBytes));
    } else if (errno == ENOENT && !bCreate) {
        files.TellGone(file.n);
    } else {
        files.Tell(file.n, std::nullopt);
    }
}

std::optional<std::int32_t> Worker::SumOf(const FileQueue& files, int hFile, std::size_t nBytes)
{
    const auto sumInto = [&](std::uint8_t* pBuffer) -> std::optional<std::int32_t> {
        const platform::tReadResult read =
            pBuffer != nullptr ? ReadBytes(hFile, pBuffer, nBytes) : platform::tReadResult();
        if (!read.bRead) {
            return std::nullopt;
        }
        // Only the rest is zeroed, after the read, since a read nearly always fills the whole buffer.
        std::fill(pBuffer + read.nBytes, pBuffer + nBytes, std::uint8_t{0});
        return files.SumOf(pBuffer, nBytes);
    };
    if (nBytes < BufferPool::kSmall) {
        return sumInto(m_small.Reserve(BufferPool::kSmall - 1));
    }
    BufferPool::Turn turn(m_buffers, m_bEnded);
    return sumInto(turn.Reserve(nBytes));
}

} // namespace desktop
