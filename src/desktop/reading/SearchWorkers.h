// SPDX-License-Identifier: MIT
#pragma once

#include "FolderListing.h"
#include "SearchReading.h"

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <vector>

namespace desktop {

class ReadingTasks;

/// Implements the reading of a search with threads. A thread that hangs in a read is left behind when the
/// search ends: it no longer accesses anything of the program, and ends once its read returns.
class SearchWorkers final : public platform::SearchReading
{
public:
    /// Starts with one worker per usable processor, or with `nWorkers`. Adds more if their work turns out to
    /// be mostly waiting.
    explicit SearchWorkers(const platform::tSearchedFolders& searched, std::size_t nWorkers = 0);
    ~SearchWorkers() override;
    SearchWorkers(const SearchWorkers&) = delete;
    SearchWorkers& operator=(const SearchWorkers&) = delete;

    platform::Answer ListFolder(const std::string& sPath, platform::FolderListing& listing) override;
    void ReadFiles(platform::tFilesToRead files) override;
    platform::Answer AskFor(std::uint32_t nInHand, std::uint32_t n, std::int32_t& nSum) override;
    void ReadFirst(std::vector<std::uint32_t> entries) override;

    /// The number of running workers in the program, including those of earlier searches. While it is not 0
    /// the program must not end in the usual way, which would destroy what they use.
    static std::size_t Alive();

private:
    std::shared_ptr<ReadingTasks> m_tasks;
};

} // namespace desktop
