// SPDX-License-Identifier: MIT
#pragma once

#include "FileIdentity.h"
#include "FileWorld.h"
#include "ScriptedOperations.h"
#include "ShellFileOperations.h"
#include "Supervisor.h"
#include "TempTree.h"
#include "Texts.h"

#include <cstdlib>
#include <fcntl.h>
#include <sys/stat.h>

namespace fileops_test {

using platform::FO_COPY;
using platform::FO_DELETE;
using platform::FO_MOVE;
using support::Choice;
using support::Content;
using support::TempTree;
using support::Unprivileged;
namespace fs = std::filesystem;

using Reasons = std::map<std::string, std::string>; ///< by the name of the file
using Bin = std::multiset<std::pair<std::string, std::string>>;

inline auto StatusOf(const std::string& sPath)
{
    return desktop::LookAt(sPath).status;
}

inline bool Shell(const std::string& sCommand)
{
    return std::system((sCommand + " >/dev/null 2>&1").c_str()) == 0;
}

/// The files directly in a folder and what is in them; none if there is no folder.
inline Reasons Contents(const std::string& sFolder)
{
    Reasons contents;
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
    Bin restorable;
    for (const auto& [sName, sContent] : Contents(sTrash + "/files")) {
        const std::string sHome = support::HomeOf(sTrash + "/files/" + sName);
        if (!sHome.empty()) {
            restorable.emplace(sHome, sContent);
        }
    }
    return restorable;
}

/// One group of rows: the files asked about, and those that stay.
class OneGroup final : public platform::FileGroups
{
public:
    explicit OneGroup(std::vector<std::string> stays) : m_stays(std::move(stays)) {}

    platform::tFileGroups GroupsOf(std::span<const std::string> paths) override
    {
        platform::tFileGroups groups;
        const auto shown = [&](const std::string& sFile) -> platform::tShownFile {
            const std::size_t nName = sFile.rfind('/') + 1;
            const auto identity = desktop::LookAt(sFile).Identity();
            return {groups.texts.Add(sFile.substr(0, nName)), groups.texts.Add(sFile.substr(nName)),
                    groups.texts.Add(platform::FormatNumber(identity.cySize)),
                    groups.texts.Add(platform::FormatDateTime(desktop::DateOf(identity)))};
        };
        for (const std::string& sPath : paths) {
            groups.files.push_back(platform::tFileGroups::tFile{shown(sPath), 0});
        }
        groups.groups.emplace_back();
        for (const std::string& sPath : m_stays) {
            groups.groups.front().push_back(shown(sPath));
        }
        return groups;
    }

private:
    std::vector<std::string> m_stays;
};

/// Operations on files of a tree in the home, whose trash begins empty.
class Operations : public ::testing::Test
{
protected:
    Operations()
    {
        fs::remove_all(Home() + "/share");
        fs::permissions(tree.sRoot, fs::perms::all);
    }

    /// Carries out one operation; the reasons given by the names of the files. What is shown adds up.
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

/// Operations whose calls are watched, on files of their own.
class Watched : public ::testing::Test
{
protected:
    TempTree tree{Home()};
    TempTree other{std::getenv("OTHER_VOLUME")};
    support::FileWorld world{tree.sRoot, other.sRoot, HomeTrash()};
};

struct WatchedEach : Watched, ::testing::WithParamInterface<support::tScenario> {
};

inline constexpr support::tScenario kScenarios[] = {
    {"Delete", FO_DELETE},
    {"Move", FO_MOVE},
    {"MoveReplacing", FO_MOVE, false, false, true},
    {"MoveToAnotherVolume", FO_MOVE, false, true},
    {"MoveToAnotherVolumePlainly", FO_MOVE, false, true, false, true},
    {"MoveFromAnotherVolumeReplacing", FO_MOVE, true, false, true},
    {"CopyReplacing", FO_COPY, false, false, true}};

inline std::string NameOf(const ::testing::TestParamInfo<support::tScenario>& test)
{
    return test.param.pName;
}

} // namespace fileops_test
