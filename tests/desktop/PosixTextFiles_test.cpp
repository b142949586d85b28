#include "PosixTextFiles.h"
#include "TempTree.h"
#include "Texts.h"

#include <sys/stat.h>
#include <unistd.h>

namespace {

using support::Content;

TEST(PosixTextFiles, WritesLinesOverWhatIsThere)
{
    const support::TempTree tree;
    desktop::PosixTextFiles files;
    const std::string sPath = tree.File("report\xFF.txt", std::string(1'000'000, 'x'));
    EXPECT_EQ(symlink(sPath.c_str(), (tree.sRoot + "/link").c_str()), 0);
    std::string sExpected;
    const auto h = files.OpenForOutput(tree.sRoot + "/link");
    const auto hOther = files.OpenForOutput(tree.sRoot + "/new");
    ASSERT_NE(h, platform::INVALID_HANDLE_VALUE);
    for (int n = 0; n < 20'000; ++n) { // more than is held back
        const std::string sLine = n == 5 ? "" : "\xFE line " + std::to_string(n);
        EXPECT_TRUE(files.PrintLine(h, sLine));
        sExpected += sLine + "\r\n";
    }
    EXPECT_TRUE(files.PrintLine(hOther, "other"));
    EXPECT_TRUE(files.CloseOutput(h));
    EXPECT_TRUE(files.CloseOutput(hOther));
    EXPECT_EQ(Content(sPath), sExpected);
    EXPECT_EQ(Content(tree.sRoot + "/new"), "other\r\n");
    EXPECT_FALSE(files.PrintLine(h, "late"));
    EXPECT_FALSE(files.CloseOutput(h));
}

TEST(PosixTextFiles, TellsWhatCouldNotBeWritten)
{
    const support::TempTree tree;
    desktop::PosixTextFiles files;
    EXPECT_EQ(mkfifo((tree.sRoot + "/pipe").c_str(), 0600), 0);
    for (const std::string& sPath :
         {tree.sRoot, tree.sRoot + "/none/x", tree.sRoot + "/pipe", std::string()}) {
        EXPECT_EQ(files.OpenForOutput(sPath), platform::INVALID_HANDLE_VALUE) << sPath;
    }
    EXPECT_FALSE(files.PrintLine(platform::INVALID_HANDLE_VALUE, "x"));
    // A full disk, met while writing or at the end.
    for (const std::size_t nLength : {1'000'000U, 1U}) {
        const auto h = files.OpenForOutput("/dev/full");
        EXPECT_EQ(files.PrintLine(h, std::string(nLength, 'x')), nLength == 1);
        EXPECT_FALSE(files.CloseOutput(h));
    }
}

TEST(SystemMessages, AreWrittenOverTheBuffer)
{
    const struct {
        unsigned dwFlags;
        long nCode;
        std::size_t nBuffer;
        std::string sExpected;
    } cases[] = {
        {4096, 2, 40, std::string("No such file or directory\0", 26) + std::string(14, '.')},
        {4096, 2, 8, std::string("No such\0", 8)},
        {4096, 31, 20, std::string("No application is r\0", 20)},
        {4096, 2, 0, ""},
        {4096, 9999, 4, "...."},
        {4096, -1, 4, "...."},
        {4096, 1L << 32U, 4, "...."},
        {0, 2, 4, "...."},
    };
    for (const auto& each : cases) {
        std::string sBuffer(each.nBuffer, '.');
        platform::FormatMessageA(each.dwFlags, each.nCode, 0, sBuffer);
        EXPECT_EQ(sBuffer, each.sExpected) << each.nCode;
    }
}

} // namespace
