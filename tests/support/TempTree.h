// SPDX-License-Identifier: MIT
#pragma once

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <sstream>
#include <string>
#include <string_view>
#include <unistd.h>

namespace support {

/// A folder of its own for a test, gone with everything in it when the test ends.
class TempTree
{
public:
    explicit TempTree(const std::filesystem::path& where = std::filesystem::temp_directory_path())
    {
        std::string sPattern = (where / "tallyfen-test-XXXXXX").string();
        EXPECT_NE(mkdtemp(sPattern.data()), nullptr);
        sRoot = std::filesystem::canonical(sPattern).string();
    }
    TempTree& operator=(TempTree&&) = delete;
    ~TempTree()
    {
        // Not by the library: it cannot delete what lies deeper than a path can be long.
        const std::string sCommand = "chmod -R u+rwx '" + sRoot + "' 2>/dev/null; rm -rf '" + sRoot + "'";
        EXPECT_EQ(std::system(sCommand.c_str()), 0);
    }

    /// Makes file `sName` and the folders above it; returns its full path.
    std::string File(const std::string& sName, std::string_view sContent = "") const
    {
        const std::string sPath = sRoot + "/" + sName;
        std::filesystem::create_directories(std::filesystem::path(sPath).parent_path());
        EXPECT_TRUE(std::ofstream(sPath, std::ios::binary) << sContent);
        return sPath;
    }

    std::string sRoot; ///< canonical, without a trailing separator
};

/// A home of its own for a test program, so that no test comes near anybody's trash. In memory if possible:
/// then the temporary folder is another volume, and syncing costs nothing.
class OwnHome : public TempTree
{
public:
    OwnHome()
        : TempTree(access("/dev/shm", W_OK | X_OK) == 0 ? "/dev/shm" : std::filesystem::temp_directory_path())
    {
        std::filesystem::permissions(sRoot, std::filesystem::perms::all);
        setenv("HOME", sRoot.c_str(), 1);
        setenv("XDG_DATA_HOME", (sRoot + "/share").c_str(), 1);
    }
};

/// All of a file; empty also if there is none.
inline std::string Content(const std::string& sPath)
{
    std::ostringstream content;
    content << std::ifstream(sPath, std::ios::binary).rdbuf();
    return content.str();
}

inline std::ptrdiff_t OpenDescriptors()
{
    return std::distance(std::filesystem::directory_iterator("/proc/self/fd"), {});
}

/// Acts as an unprivileged user while it lives; this is only in effect where the tests run as root.
class Unprivileged
{
public:
    Unprivileged() { EXPECT_EQ(geteuid() == 0 ? seteuid(65534) : 0, 0); }
    Unprivileged& operator=(Unprivileged&&) = delete;
    ~Unprivileged() { EXPECT_EQ(getuid() == 0 ? seteuid(0) : 0, 0); }
};

} // namespace support
