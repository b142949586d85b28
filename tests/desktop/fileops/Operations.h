#pragma once

#include "FileFaults.h"
#include "ScriptedOperations.h"
#include "TempTree.h"
#include "TrashBin.h"

#include <fcntl.h>
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

inline struct stat StatusOf(const std::string& sPath)
{
    struct stat status {
    };
    EXPECT_EQ(lstat(sPath.c_str(), &status), 0) << sPath;
    return status;
}

/// Runs a command of the shell.
inline bool Shell(const std::string& sCommand)
{
    return std::system((sCommand + " >/dev/null 2>&1").c_str()) == 0;
}

/// Operations on files of a tree in the home, whose trash begins empty.
class Operations : public ::testing::Test
{
protected:
    Operations()
    {
        fs::remove_all(std::getenv("XDG_DATA_HOME"));
        fs::permissions(tree.sRoot, fs::perms::all);
    }

    /// Carries out one operation; the reasons given by the names of the files. What the user is shown adds
    /// up.
    Reasons Run(unsigned wFunc, const std::vector<std::string>& paths, const std::string& sFolder = "")
    {
        user.outcome = {};
        desktop::ShellFileOperations operations(user);
        EXPECT_EQ(operations.SHFileOperationA(support::Request(wFunc, paths, sFolder)), 0);
        return support::Reasons(user.outcome);
    }

    std::string Folder(const std::string& sName) const
    {
        fs::create_directories(tree.sRoot + '/' + sName);
        return tree.sRoot + '/' + sName;
    }

    TempTree tree{support::Home()};
    support::ScriptedOperations user;
};

} // namespace fileops_test
