// SPDX-License-Identifier: MIT
#include "PosixTextFiles.h"
#include "TempTree.h"
#include "Texts.h"

#include <sys/stat.h>

namespace {

using support::Content;

TEST(PosixTextFiles, WriteLinesOverWhatIsThere)
{
    const support::TempTree tree;
    desktop::PosixTextFiles files;
    const std::string sPath = tree.File("report\xFF.txt", std::string(1'000'000, 'x'));
    std::filesystem::create_symlink(sPath, tree.sRoot + "/link");
    std::string sExpected;
    const auto h = files.OpenForOutput(tree.sRoot + "/link");
    for (int n = 0; n < 20'000; ++n) { // more than is held back
        const std::string sLine = n == 5 ? "" : "\xFE line " + std::to_string(n);
        EXPECT_TRUE(files.PrintLine(h, sLine));
        sExpected += sLine + "\r\n";
    }
    EXPECT_TRUE(files.CloseOutput(h));
    EXPECT_TRUE(Content(sPath) == sExpected);
    EXPECT_FALSE(files.PrintLine(h, "late") || files.CloseOutput(h));
}

TEST(PosixTextFiles, TellWhatCouldNotBeWritten)
{
    const support::TempTree tree;
    desktop::PosixTextFiles files;
    EXPECT_EQ(mkfifo((tree.sRoot + "/pipe").c_str(), 0600), 0);
    for (const std::string& sPath : {tree.sRoot, tree.sRoot + "/none/x", tree.sRoot + "/pipe"}) {
        EXPECT_EQ(files.OpenForOutput(sPath), platform::INVALID_HANDLE_VALUE) << sPath;
    }
    // A full disk, met while writing or at the end.
    for (const std::size_t nLength : {1'000'000U, 1U}) {
        const auto h = files.OpenForOutput("/dev/full");
        EXPECT_EQ(files.PrintLine(h, std::string(nLength, 'x')), nLength == 1);
        EXPECT_FALSE(files.CloseOutput(h));
    }
}

TEST(SystemMessages, AreWrittenOverTheBuffer)
{
    const auto written = [](unsigned dwFlags, long nCode, std::size_t nBuffer) {
        std::string sBuffer(nBuffer, '.');
        platform::FormatMessageA(dwFlags, nCode, 0, sBuffer);
        return sBuffer;
    };
    EXPECT_EQ(written(4096, 2, 30), std::string("No such file or directory\0....", 30));
    EXPECT_EQ(written(4096, 2, 8), std::string("No such\0", 8));
    EXPECT_EQ(written(4096, 31, 8), std::string("No appl\0", 8));
    EXPECT_EQ(written(4096, 2, 0), "");
    for (const long nUnknown : {9999L, -1L, 1L << 32U}) {
        EXPECT_EQ(written(4096, nUnknown, 4), "....");
    }
    EXPECT_EQ(written(0, 2, 4), "....");
}

} // namespace
