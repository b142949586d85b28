// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <map>
#include <random>
#include <set>
#include <string>

namespace soak {

/// Groups of duplicates, each with the full paths of its files.
using Groups = std::set<std::set<std::string>>;

enum class Mode { Content, Name, NameAndSize };

/// A temporary folder that contains the home folder of this process, and so its trash. Must be created before
/// anything uses either; it is removed with this object.
class World
{
public:
    /// Throws std::filesystem::filesystem_error if the folder cannot be created.
    explicit World(unsigned nSeed);
    World(const World&) = delete;
    World& operator=(const World&) = delete;
    ~World();

    /// A number from 0 to `n` - 1.
    std::size_t Random(std::size_t n)
    {
        return std::uniform_int_distribution<std::size_t>(0, n - 1)(m_random);
    }

    /// Removes all files, including the trash, and creates a new tree with a few hundred files.
    void Renew();

    /// The root of the tree, and a random folder in it.
    [[nodiscard]] std::string Tree() const { return m_sRoot + "/home/tree"; }
    std::string SomeFolder();
    [[nodiscard]] std::string Report() const { return m_sRoot + "/report.txt"; }

    /// The expected result of a search of the tree, determined from the files themselves.
    [[nodiscard]] Groups Duplicates(Mode mode, bool bHidden) const;

    /// Acts like other programs meanwhile: writes to some files of the tree, removes some, adds hard links to
    /// some.
    void Disturb();

    /// All contents in the tree and the trash, with the number of files that have them.
    [[nodiscard]] std::map<std::string, std::size_t> Contents() const;

    /// The files outside the trash, by content.
    [[nodiscard]] std::map<std::string, std::set<std::string>> Holders() const;

private:
    std::string m_sRoot;
    std::mt19937 m_random;
};

} // namespace soak
