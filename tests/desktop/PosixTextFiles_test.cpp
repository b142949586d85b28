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
    const auto hOther = files.OpenForOutput(tree.sRoot + "/new");
    for (int n = 0; n < 20'000; ++n) { // more than is held back
        const std::string sLine = n == 5 ? "" : "\xFE line " + std::to_string(n);
        EXPECT_TRUE(files.PrintLine(h, sLine));
        sExpected += sLine + "\r\n";
    }
    EXPECT_TRUE(files.PrintLine(hOther, "other"));
    EXPECT_TRUE(files.CloseOutput(h) && files.CloseOutput(hOther));
    EXPECT_TRUE(Content(sPath) == sExpected);
    EXPECT_EQ(Content(tree.sRoot + "/new"), "other\r\n");
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
    const struct {
        unsigned dwFlags;
        long nCode;
        std::string sBuffer, sExpected;
    } cases[] = {
        {4096, 2, std::string(30, '.'), std::string("No such file or directory\0....", 30)},
        {4096, 2, "........", std::string("No such\0", 8)},
        {4096, 31, "........", std::string("No appl\0", 8)},
        {4096, 2, "", ""},
        {4096, 9999, "....", "...."},
        {4096, -1, "....", "...."},
        {4096, 1L << 32U, "....", "...."},
        {0, 2, "....", "...."},
    };
    for (auto each : cases) {
        platform::FormatMessageA(each.dwFlags, each.nCode, 0, each.sBuffer);
        EXPECT_EQ(each.sBuffer, each.sExpected) << each.nCode;
    }
}

} // namespace
