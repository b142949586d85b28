#pragma once

#include "FileFaults.h"
#include "FileIdentity.h"
#include "ScriptedOperations.h"
#include "TempTree.h"

#include <fcntl.h>
#include <glib.h>
#include <set>
#include <sys/stat.h>
#include <unistd.h>

namespace fileops_test {

using support::Choice;
using support::Content;
using support::TempTree;
using support::Unprivileged;
namespace faults = support::faults;
namespace fs = std::filesystem;

using Reasons = std::map<std::string, std::string>;
using Bin = std::multiset<std::pair<std::string, std::string>>;

inline auto StatusOf(const std::string& sPath)
{
    return desktop::LookAt(sPath).status;
}

/// Runs a command of the shell.
inline bool Shell(const std::string& sCommand)
{
    return std::system((sCommand + " >/dev/null 2>&1").c_str()) == 0;
}

/// The files directly in a folder and what is in them; none if there is no folder.
inline std::map<std::string, std::string> Contents(const std::string& sFolder)
{
    std::map<std::string, std::string> contents;
    std::error_code error;
    for (const auto& entry : fs::directory_iterator(sFolder, error)) {
        if (entry.is_regular_file()) {
            contents[entry.path().filename()] = Content(entry.path());
        }
    }
    return contents;
}

/// The home of this test program, on the volume of which files go to the home trash.
inline std::string Home()
{
    return std::getenv("HOME");
}

inline std::string HomeTrash()
{
    return Home() + "/share/Trash";
}

/// What can be restored from a trash: pairs of the path noted and the content.
inline Bin Restorable(const std::string& sTrash = HomeTrash())
{
    const std::string sStart = "[Trash Info]\nPath=";
    Bin restorable;
    const auto files = Contents(sTrash + "/files");
    for (const auto& [sInfo, sNote] : Contents(sTrash + "/info")) {
        const auto file = files.find(sInfo.substr(0, sInfo.rfind('.')));
        const std::size_t nEnd = sNote.find("\nDeletionDate=2");
        if (file != files.end() && sNote.starts_with(sStart) && nEnd != std::string::npos) {
            const std::string sPath = sNote.substr(sStart.size(), nEnd - sStart.size());
            char* pPath = g_uri_unescape_string(sPath.c_str(), nullptr);
            restorable.emplace(pPath != nullptr ? pPath : "", file->second);
            g_free(pPath);
        }
    }
    return restorable;
}

/// Operations on files of a tree in the home, whose trash begins empty.
class Operations : public ::testing::Test
{
protected:
    Operations()
    {
        fs::remove_all(Home() + "/share");
        fs::permissions(tree.sRoot, fs::perms::all);
    }

    /// Carries out one operation; the reasons given by the names of the files. What the user is shown adds
    /// up.
    Reasons Run(unsigned wFunc, const std::vector<std::string>& paths, const std::string& sFolder = "")
    {
        user.outcome = {};
        desktop::ShellFileOperations operations(user, true);
        EXPECT_EQ(operations.SHFileOperationA(support::Request(wFunc, paths, sFolder)), 0);
        return support::Reasons(user.outcome);
    }

    std::string Folder(const std::string& sName) const
    {
        fs::create_directories(tree.sRoot + '/' + sName);
        return tree.sRoot + '/' + sName;
    }

    TempTree tree{Home()};
    TempTree other; ///< on another volume, if there is one
    support::ScriptedOperations user;
};

} // namespace fileops_test
