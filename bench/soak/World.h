// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <map>
#include <random>
#include <set>
#include <string>

namespace soak {

/// Groups of duplicates, each the full paths of its files.
using Groups = std::set<std::set<std::string>>;

enum class Mode { Content, Name, NameAndSize };

/// A temporary folder with a home in it, which the trash of this process goes to: made before anything asks
/// for either, gone with this object.
class World
{
public:
    /// Throws std::filesystem::filesystem_error if the folder cannot be made.
    explicit World(unsigned nSeed);
    World(const World&) = delete;
    World& operator=(const World&) = delete;
    ~World();

    /// A number from 0 to `n` - 1.
    std::size_t Random(std::size_t n)
    {
        return std::uniform_int_distribution<std::size_t>(0, n - 1)(m_random);
    }

    /// Throws all files away, the trash too, and makes a new tree of a few hundred.
    void Renew();

    /// The folder that holds the tree, and one of the folders of a random place.
    [[nodiscard]] std::string Tree() const { return m_sRoot + "/home/tree"; }
    std::string SomeFolder();
    [[nodiscard]] std::string Report() const { return m_sRoot + "/report.txt"; }

    /// What a search of the tree has to find, worked out from the files themselves.
    [[nodiscard]] Groups Duplicates(Mode mode, bool bHidden) const;

    /// What other programs do meanwhile: writes to a few files of the tree, removes some, names some twice.
    void Disturb();

    /// Each content that there is, and how many files hold it, in the tree and in the trash.
    [[nodiscard]] std::map<std::string, std::size_t> Contents() const;

    /// The files that are not in the trash, by what they hold.
    [[nodiscard]] std::map<std::string, std::set<std::string>> Holders() const;

private:
    std::string m_sRoot;
    std::mt19937 m_random;
};

} // namespace soak
