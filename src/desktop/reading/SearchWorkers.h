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

/// The reading of a search by threads of its own. One that hangs in a read is left behind when the search
/// ends: it touches nothing of the program any more, and goes by itself once its read returns.
class SearchWorkers final : public platform::SearchReading
{
public:
    /// Starts with as many workers as there are processors, or `nWorkers`; where work turns out to be mostly
    /// waiting, more are added.
    explicit SearchWorkers(const platform::tSearchedFolders& searched, std::size_t nWorkers = 0);
    ~SearchWorkers() override;
    SearchWorkers(const SearchWorkers&) = delete;
    SearchWorkers& operator=(const SearchWorkers&) = delete;

    platform::Answer ListFolder(const std::string& sPath, platform::FolderListing& listing) override;
    void ReadFiles(platform::tFilesToRead files) override;
    platform::Answer AskFor(std::uint32_t nInHand, std::uint32_t n, std::int32_t& nSum) override;
    void ReadFirst(std::vector<std::uint32_t> entries) override;

    /// How many workers there are in the program, those of searches that have ended among them. While there
    /// are any the program cannot end in the usual way, which would pull away what they use.
    static std::size_t Alive();

private:
    std::shared_ptr<ReadingTasks> m_tasks;
};

} // namespace desktop
