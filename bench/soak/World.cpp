// SPDX-License-Identifier: MIT
#include "World.h"

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <sstream>

namespace soak {
namespace {

namespace fs = std::filesystem;

std::string ContentOf(const fs::path& path)
{
    std::ostringstream content;
    content << std::ifstream(path, std::ios::binary).rdbuf();
    return content.str();
}

} // namespace

World::World(unsigned nSeed) : m_random(nSeed)
{
    std::string sPattern = (fs::temp_directory_path() / "tallyfen-soak-XXXXXX").string();
    if (mkdtemp(sPattern.data()) == nullptr) {
        throw fs::filesystem_error("no temporary folder", sPattern, std::error_code());
    }
    m_sRoot = fs::canonical(sPattern).string();
    setenv("HOME", (m_sRoot + "/home").c_str(), 1);
    setenv("XDG_DATA_HOME", (m_sRoot + "/home/.local/share").c_str(), 1);
}

World::~World()
{
    std::error_code error; // errors are ignored: leftovers are in the temporary folder
    fs::remove_all(m_sRoot, error);
}

void World::Renew()
{
    fs::remove_all(m_sRoot + "/home");
    const std::size_t nFolders = 1 + Random(12);
    const std::size_t nContents = 1 + Random(60);
    for (std::size_t n = 0; n < 10 + Random(300); ++n) {
        const std::size_t nFolder = Random(nFolders);
        std::string sFolder = Tree();
        for (std::size_t nUp = nFolder; nUp > 0; nUp /= 3) {
            sFolder.append(nUp % 7 == 0 ? "/.f" : "/f").append(std::to_string(nUp));
        }
        fs::create_directories(sFolder);
        static const std::string kOdd[] = {"n", "a b", ".h", "\xff", "new\nline", "\xc3\xa4", "-rf", "\"q\""};
        const std::string sName = kOdd[Random(std::size(kOdd))] + std::to_string(Random(40));
        // Few different sizes, so that sizes often match where contents do not.
        const std::size_t nContent = Random(nContents);
        const std::string sContent =
            nContent == 0 ? "" : std::to_string(nContent) + std::string(100 * (nContent % 4), 'x') + "\n";
        std::ofstream(fs::path(sFolder) / sName, std::ios::binary) << sContent;
    }
}

std::string World::SomeFolder()
{
    std::vector<std::string> folders = {Tree(), m_sRoot + "/home/other"};
    fs::create_directories(folders.back());
    for (const auto& entry : fs::recursive_directory_iterator(Tree())) {
        if (entry.is_directory()) {
            folders.push_back(entry.path().string());
        }
    }
    return folders[Random(folders.size())];
}

Groups World::Duplicates(Mode mode, bool bHidden) const
{
    std::map<std::string, std::set<std::string>> alike;
    for (auto i = fs::recursive_directory_iterator(Tree()); i != fs::recursive_directory_iterator(); ++i) {
        const std::string sName = i->path().filename().string();
        if (!bHidden && sName.starts_with(".")) {
            i.disable_recursion_pending();
        } else if (i->is_regular_file()) {
            const std::string sContent = ContentOf(i->path());
            const std::string sKey = mode == Mode::Content ? sContent
                                     : mode == Mode::Name  ? sName
                                                           : sName + "/" + std::to_string(sContent.size());
            alike[sKey].insert(i->path().string());
        }
    }
    Groups groups;
    for (auto& [sKey, paths] : alike) {
        if (paths.size() > 1) {
            groups.insert(std::move(paths));
        }
    }
    return groups;
}

void World::Disturb()
{
    std::vector<fs::path> files;
    for (const auto& entry : fs::recursive_directory_iterator(Tree())) {
        if (entry.is_regular_file()) {
            files.push_back(entry.path());
        }
    }
    for (std::size_t n = 0; n < files.size(); ++n) {
        const fs::path& sOther = files[Random(files.size())];
        std::error_code error; // errors are ignored: what cannot be removed stays
        switch (Random(40)) {
        case 0:
            std::ofstream(files[n], std::ios::app) << "more";
            break;
        case 1:
            fs::remove(files[n]);
            break;
        case 2:
            fs::remove(files[n]);
            fs::create_hard_link(sOther, files[n], error);
            break;
        case 3: // same size and time, other contents
            if (const auto time = fs::last_write_time(files[n]); fs::file_size(files[n]) > 0) {
                std::fstream(files[n], std::ios::in | std::ios::out) << 'X';
                fs::last_write_time(files[n], time);
            }
            break;
        default:
            break;
        }
    }
}

std::map<std::string, std::set<std::string>> World::Holders() const
{
    std::map<std::string, std::set<std::string>> holders;
    for (const char* pFolder : {"/home/tree", "/home/other"}) {
        std::error_code error; // the folder may not exist yet
        for (const auto& entry : fs::recursive_directory_iterator(m_sRoot + pFolder, error)) {
            if (entry.is_regular_file()) {
                holders[ContentOf(entry.path())].insert(entry.path().string());
            }
        }
    }
    return holders;
}

std::map<std::string, std::size_t> World::Contents() const
{
    std::map<std::string, std::size_t> contents;
    for (const char* pFolder : {"/home/tree", "/home/other", "/home/.local/share/Trash/files"}) {
        std::error_code error; // the folder may not exist yet
        for (const auto& entry : fs::recursive_directory_iterator(m_sRoot + pFolder, error)) {
            if (entry.is_regular_file()) {
                ++contents[ContentOf(entry.path())];
            }
        }
    }
    return contents;
}

} // namespace soak
