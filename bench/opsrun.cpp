// SPDX-License-Identifier: MIT
// Measures the cost of the file operations: deleting compared with plain GIO calls, copying compared with cp.

#include "FolderEntry.h"
#include "GroupMarks.h"
#include "ListView.h"
#include "OperationDialogs.h"
#include "Paths.h"
#include "ShellFileOperations.h"
#include "Texts.h"
#include "cGroupRows.h"
#include "mFileGroups.h"

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <functional>
#include <gio/gio.h>
#include <map>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <unistd.h>
#include <vector>

namespace {

namespace fs = std::filesystem;

constexpr int kUsage = 64;
constexpr int kFailed = 1;
constexpr int kRounds = 5;
constexpr std::size_t kFileMegabytes = 512;
constexpr std::size_t kPiece = 4096;

/// A user who agrees to everything.
class Consent final : public desktop::OperationDialogs
{
public:
    desktop::Consent Confirm(const desktop::tConfirmation& confirmation) override
    {
        const std::chrono::duration<double> looks = std::chrono::steady_clock::now() - m_lastTold;
        dLooks = looks.count();
        // After a search by content, the bytes are compared.
        return confirmation.comparedBy == platform::ComparedBy::Content ? desktop::Consent::WithCopy
                                                                        : desktop::Consent::All;
    }
    bool AskRoom(const desktop::tOperation& /*operation*/, const desktop::tRoom& /*room*/) override
    {
        return true;
    }
    desktop::tReplaceAnswer AskReplace(const desktop::tFileFacts& /*source*/,
                                       const desktop::tFileFacts& /*target*/, bool /*bIdentical*/) override
    {
        return {};
    }
    void Started(const desktop::tOperation& /*operation*/) override {}
    bool Progress(const desktop::tOperationProgress& /*progress*/) override
    {
        Told();
        return true;
    }
    bool Finished(const desktop::tOperation& /*operation*/,
                  const desktop::tOperationOutcome& outcome) override
    {
        Told();
        nNotDone += outcome.notDone.size();
        return false;
    }

    std::size_t nNotDone = 0;
    double dLooks = 0;                                    ///< seconds until the user is asked
    std::chrono::steady_clock::duration longestSilence{}; ///< the longest time without visible progress

private:
    void Told()
    {
        const auto now = std::chrono::steady_clock::now();
        longestSilence = std::max(longestSilence, now - m_lastTold);
        m_lastTold = now;
    }

    std::chrono::steady_clock::time_point m_lastTold = std::chrono::steady_clock::now();
};

/// One way to do the work; `prepare` runs before each round.
struct tContender {
    const char* pName;
    std::function<void()> work;
    std::vector<double> seconds{};
};

/// Runs the contenders in turn and prints their medians and the ratios to the first one.
void Compare(std::vector<tContender> contenders, const std::function<void()>& prepare)
{
    for (int nRound = 0; nRound < kRounds; ++nRound) {
        for (std::size_t n = 0; n < contenders.size(); ++n) {
            // Each contender goes first equally often.
            tContender& contender = contenders[(n + static_cast<std::size_t>(nRound)) % contenders.size()];
            prepare();
            sync();
            const auto start = std::chrono::steady_clock::now();
            contender.work();
            contender.seconds.push_back(
                std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count());
        }
    }
    const auto median = [](tContender& contender) {
        std::sort(contender.seconds.begin(), contender.seconds.end());
        return contender.seconds[contender.seconds.size() / 2];
    };
    const double dOurs = median(contenders.front());
    for (tContender& contender : contenders) {
        std::printf("%-16s %8.3f s", contender.pName, median(contender));
        std::printf("  (%.3f to %.3f)  ours/this %.2f\n", contender.seconds.front(), contender.seconds.back(),
                    dOurs / median(contender));
    }
}

/// Returns the longest time without a progress call.
double Carry(const platform::SHFILEOPSTRUCT& request, platform::FileGroups* pGroups = nullptr)
{
    Consent consent;
    desktop::ShellFileOperations operations(consent);
    if (pGroups != nullptr) {
        operations.UseGroups(*pGroups);
    }
    if (operations.SHFileOperationA(request) != 0 || consent.nNotDone != 0) {
        std::fprintf(stderr, "opsrun: %zu files not done\n", consent.nNotDone);
        std::exit(kFailed);
    }
    if (pGroups != nullptr) {
        std::printf("  asked after %.3f s\n", consent.dLooks);
    }
    return std::chrono::duration<double>(consent.longestSilence).count();
}

/// The rows of a search: each file in a group with its copy, which stays.
class Rows final : public platform::FileGroups
{
public:
    explicit Rows(platform::ComparedBy comparedBy) : m_comparedBy(comparedBy) { m_list.MultiSelect = true; }

    /// `sPath` goes, `sCopy` stays.
    void Add(const std::string& sPath, const std::string& sCopy)
    {
        AddRow(sCopy, platform::kMarkFirst);
        AddRow(sPath, platform::kMarkLast).SetSelected(true);
    }

    platform::tFileGroups GroupsOf(std::span<const std::string> paths) override
    {
        return results::GroupsOf(m_list, m_comparedBy, paths);
    }

private:
    platform::ListItem AddRow(const std::string& sPath, int nMark)
    {
        const auto identity = desktop::LookAt(sPath).Identity();
        const std::string sName = platform::NameIn(sPath);
        auto row = *m_list.ListItems.Add(sPath, sName, nMark);
        row.SetSubItems(search::kSizeColumn, platform::FormatNumber(identity.cySize));
        row.SetSubItems(search::kDateColumn, platform::FormatDateTime(desktop::DateOf(identity)));
        row.SetSubItems(search::kFolderColumn, sPath.substr(0, sPath.size() - sName.size()));
        return row;
    }

    platform::ComparedBy m_comparedBy;
    platform::Form m_form;
    platform::ListView m_list{m_form};
};

void Command(const std::string& sCommand)
{
    if (std::system(sCommand.c_str()) != 0) {
        std::fprintf(stderr, "opsrun: failed: %s\n", sCommand.c_str());
        std::exit(kFailed);
    }
}

platform::SHFILEOPSTRUCT ToTrash(const std::vector<std::string>& paths)
{
    platform::SHFILEOPSTRUCT request;
    request.wFunc = platform::FO_DELETE;
    request.fFlags = platform::FOF_ALLOWUNDO;
    for (const std::string& sPath : paths) {
        request.pFrom += sPath + '\0';
    }
    return request;
}

/// Moves a folder out of the way. ext4 searches past all inode numbers just freed when it creates files, so
/// removing thousands between the rounds would slow down what is measured.
void SetAside(const std::string& sRoot, const std::string& sFolder)
{
    static int nFolders = 0;
    fs::create_directories(sRoot + "/aside");
    if (fs::exists(sRoot + sFolder)) {
        fs::rename(sRoot + sFolder, sRoot + "/aside/" + std::to_string(++nFolders));
    }
}

/// Empties the trash and creates the files again.
void Make(const std::string& sRoot, const std::vector<std::string>& paths)
{
    SetAside(sRoot, "/share");
    constexpr std::size_t kSize = 3'000;
    for (const std::string& sPath : paths) {
        fs::create_directories(fs::path(sPath).parent_path());
        std::ofstream(sPath) << sPath << std::string(kSize - std::min(kSize, sPath.size()), 'x');
    }
}

/// Files with the same name in different folders, compared with files with different names.
void TrashEqualNames(const std::string& sRoot, std::size_t nFiles)
{
    std::vector<std::string> equal;
    std::vector<std::string> different;
    for (std::size_t n = 0; n < nFiles; ++n) {
        const std::string sFolder = sRoot + "/from/" + std::to_string(n);
        equal.push_back(sFolder + "/equal.txt");
        different.push_back(sFolder + '/' + std::to_string(n) + ".txt");
    }
    auto both = equal;
    both.insert(both.end(), different.begin(), different.end());
    Compare({{"equal names", [&] { Carry(ToTrash(equal)); }},
             {"different names", [&] { Carry(ToTrash(different)); }}},
            [&] { Make(sRoot, both); });
}

/// With `comparedBy` the files come from a search, and a copy of each stays.
void TrashFound(const std::string& sRoot, std::size_t nFiles, std::optional<platform::ComparedBy> comparedBy)
{
    std::vector<std::string> paths;
    paths.reserve(nFiles);
    for (std::size_t n = 0; n < nFiles; ++n) {
        paths.push_back(sRoot + "/from/" + std::to_string(n) + ".txt");
    }
    const auto bare = [&] {
        for (const std::string& sPath : paths) {
            GFile* pFile = g_file_new_for_path(sPath.c_str());
            if (g_file_trash(pFile, nullptr, nullptr) == FALSE) {
                std::fprintf(stderr, "opsrun: not trashed: %s\n", sPath.c_str());
                std::exit(kFailed);
            }
            g_object_unref(pFile);
        }
    };
    std::optional<Rows> rows;
    const auto ours = [&] { Carry(ToTrash(paths), rows ? &*rows : nullptr); };
    Compare({{"ours", ours}, {"g_file_trash", bare}}, [&] {
        Make(sRoot, paths);
        if (comparedBy) {
            rows.emplace(*comparedBy);
            SetAside(sRoot, "/stays");
            fs::copy(sRoot + "/from", sRoot + "/stays");
            for (const std::string& sPath : paths) {
                rows->Add(sPath, sRoot + "/stays/" + platform::NameIn(sPath));
            }
        }
    });
}

void Trash(const std::string& sRoot, std::size_t nFiles)
{
    TrashFound(sRoot, nFiles, std::nullopt);
}

void TrashByContent(const std::string& sRoot, std::size_t nFiles)
{
    TrashFound(sRoot, nFiles, platform::ComparedBy::Content);
}

void TrashByName(const std::string& sRoot, std::size_t nFiles)
{
    TrashFound(sRoot, nFiles, platform::ComparedBy::Name);
}

/// Copies the files of `sRoot`/from, which `names` lists.
void Copy(const std::string& sRoot, const std::vector<std::string>& names)
{
    platform::SHFILEOPSTRUCT request;
    request.wFunc = platform::FO_COPY;
    request.fFlags = platform::FOF_MULTIDESTFILES;
    std::string sCopy = "cp -p";
    for (const std::string& sName : names) {
        const std::string sPath = (fs::path(sRoot) / "from" / sName).string();
        request.pFrom += sPath + '\0';
        request.pTo += (fs::path(sRoot) / "to" / sName).string() + '\0';
        sCopy += ' ' + sPath;
    }
    sCopy += ' ' + sRoot + "/to";
    double dLongest = 0;
    Compare({{"ours", [&] { dLongest = std::max(dLongest, Carry(request)); }},
             {"cp -p", [&] { Command(sCopy); }},
             {"cp -p, sync", [&] { Command(sCopy + " && sync " + sRoot + "/to/*"); }}},
            [&] {
                fs::remove_all(sRoot + "/to");
                fs::create_directories(sRoot + "/to");
                Command("cat " + sRoot + "/from/* >/dev/null"); // into memory, for all contenders
            });
    std::printf("longest time without a word of progress, in any round: %.3f s\n", dLongest);
}

void CopyMegabytes(const std::string& sRoot, std::size_t nMegabytes)
{
    fs::create_directories(sRoot + "/from");
    std::vector<std::string> names;
    for (std::size_t nMade = 0; nMade < nMegabytes; nMade += kFileMegabytes) {
        names.push_back(std::to_string(nMade));
        Command("head -c " + std::to_string(std::min(kFileMegabytes, nMegabytes - nMade)) +
                "M /dev/urandom >" + sRoot + "/from/" + names.back());
    }
    Copy(sRoot, names);
}

/// A file that consists of `nPieces` pieces with holes between them.
void CopyPieces(const std::string& sRoot, std::size_t nPieces)
{
    fs::create_directories(sRoot + "/from");
    std::ofstream file(sRoot + "/from/pieces");
    const std::string sPiece(kPiece, 'x');
    for (std::size_t n = 0; n < nPieces; ++n) {
        file.seekp(static_cast<std::streamoff>(2 * n * kPiece)) << sPiece;
    }
    file.close();
    Copy(sRoot, {"pieces"});
}

} // namespace

int main(int argc, char* argv[])
{
    const std::string_view sWhat = argc > 1 ? argv[1] : "";
    const std::size_t nCount = argc > 2 ? std::strtoul(argv[2], nullptr, 10) : 0;
    const std::map<std::string_view, void (*)(const std::string&, std::size_t)> all{
        {"trash", Trash},           {"by-content", TrashByContent}, {"by-name", TrashByName},
        {"equal", TrashEqualNames}, {"copy", CopyMegabytes},        {"pieces", CopyPieces}};
    const auto chosen = all.find(sWhat);
    if (chosen == all.end() || nCount == 0 || argc > 4) {
        std::fputs(
            "usage: opsrun trash|by-content|by-name|equal FILES [FOLDER]\n       opsrun copy MEGABYTES "
            "[FOLDER]\n"
            "       opsrun pieces PIECES [FOLDER]\n"
            "Works in a folder of its own below FOLDER or the temporary one, with a trash of its own.\n",
            stderr);
        return kUsage;
    }
    std::string sRoot = (argc > 3 ? fs::path(argv[3]) : fs::temp_directory_path()) / "opsrun-XXXXXX";
    if (mkdtemp(sRoot.data()) == nullptr) {
        std::perror("opsrun");
        return kFailed;
    }
    setenv("HOME", sRoot.c_str(), 1);
    setenv("XDG_DATA_HOME", (sRoot + "/share").c_str(), 1);
    unsetenv("DBUS_SESSION_BUS_ADDRESS");
    unsetenv("DISPLAY");
    chosen->second(sRoot, nCount);
    fs::remove_all(sRoot);
    return 0;
}
