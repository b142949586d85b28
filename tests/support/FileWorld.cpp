// SPDX-License-Identifier: MIT
#include "FileWorld.h"

#include "ScriptedOperations.h"
#include "ShellFileOperations.h"
#include "TempTree.h"

#include <algorithm>
#include <fcntl.h>
#include <sys/mman.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <sys/xattr.h>

namespace support {
namespace {

namespace fs = std::filesystem;

/// Shared with the process that works.
volatile bool& Cancelled()
{
    static void* const pShared = mmap(nullptr, 1, PROT_READ | PROT_WRITE, MAP_SHARED | MAP_ANONYMOUS, -1, 0);
    return *static_cast<volatile bool*>(pShared);
}

void Write(const std::string& sPath, const std::string& sContent)
{
    std::ofstream(sPath) << sContent;
    setxattr(sPath.c_str(), "user.note", "x", 1, 0);
    FileWorld::SetOldTime(sPath);
}

/// A path in a note, whose odd bytes are written as %XX.
std::string Unescaped(const std::string& sText)
{
    std::string sResult;
    for (std::size_t n = 0; n < sText.size(); ++n) {
        const bool bEscape = sText[n] == '%' && n + 2 < sText.size();
        sResult += bEscape ? static_cast<char>(std::stoi(sText.substr(n + 1, 2), nullptr, 16)) : sText[n];
        n += bEscape ? 2 : 0;
    }
    return sResult;
}

/// The word before the padding.
std::string Text(const std::string& sContent)
{
    return sContent.substr(0, sContent.find('.'));
}

} // namespace

std::string HomeOf(const std::string& sPath)
{
    const std::size_t nFiles = sPath.find("/files", sPath.find("Trash"));
    if (nFiles == std::string::npos) {
        return sPath;
    }
    const std::size_t nName = sPath.find('/', nFiles + 1);
    const std::size_t nEnd = std::min(sPath.find('/', nName + 1), sPath.size());
    const std::string sInfo =
        sPath.substr(0, nFiles) + "/info" + sPath.substr(nName, nEnd - nName) + ".trashinfo";
    struct stat status{};
    const std::string sNote =
        lstat(sInfo.c_str(), &status) == 0 && S_ISREG(status.st_mode) && status.st_size < 10'000
            ? support::Content(sInfo)
            : "";
    const std::string sStart = "[Trash Info]\nPath=";
    const std::size_t nLine = sNote.find("\nDeletionDate=2");
    if (!sNote.starts_with(sStart) || nLine == std::string::npos) {
        return {};
    }
    const std::string sNoted = Unescaped(sNote.substr(sStart.size(), nLine - sStart.size()));
    const std::string sTop = sPath.substr(0, sPath.find("/.Trash") + 1);
    return (sNoted.starts_with('/') ? "" : sTop) + sNoted + sPath.substr(nEnd);
}

FileWorld::FileWorld(std::string sHere, std::string sOther, std::string sTrashFolder)
    : sTrash(std::move(sTrashFolder)), m_sHere(std::move(sHere)), m_sOther(std::move(sOther))
{
    sPrivate = m_sHere + "/private";
}

bool FileWorld::SetOldTime(const std::string& sPath)
{
    const timespec times[] = {{1'700'000'000, 0}, {1'700'000'000, 0}};
    return utimensat(AT_FDCWD, sPath.c_str(), times, 0) == 0;
}

std::string FileWorld::Content(const std::string& sText)
{
    return sText + std::string(4999 - sText.size(), '.') + '$';
}

void FileWorld::Make(const std::string& sFolder, const std::string& sText)
{
    Write(sFolder + '/' + sText.substr(sText.rfind(' ') + 1), Know(Content(sText)));
}

const std::string& FileWorld::Know(const std::string& sContent)
{
    required.insert(sContent);
    return *known.insert(sContent).first;
}

void FileWorld::Prepare(const tScenario& next)
{
    scenario = next;
    for (const std::string& sVolume : {m_sHere, m_sOther}) {
        for (const auto& each : fs::directory_iterator(sVolume)) {
            if (each.path() != sPrivate) {
                fs::remove_all(each.path());
            }
        }
    }
    fs::remove_all(fs::path(sTrash).parent_path());
    if (m_sPrivateBefore.empty() || PrivateState() != m_sPrivateBefore) {
        fs::remove_all(sPrivate);
        fs::create_directories(sPrivate);
        for (const std::string sName : {"a", "b"}) {
            Write(sPrivate + '/' + sName, Content("private " + sName));
        }
        usleep(5000); // until the system's clock has moved on
        m_sPrivateBefore = PrivateState();
    }
    sFrom = (scenario.bFromOther ? m_sOther : m_sHere) + "/from";
    sTo = (scenario.bToOther ? m_sOther : m_sHere) + "/to";
    fs::create_directories(sFrom);
    fs::create_directories(sTo);
    required.clear();
    known.clear();
    doneAnyway.clear();
    bSeen = true;
    m_bNext = false;
    Make(sFrom, "mine a");
    Make(sFrom, "mine b");
    Make(sFrom, "other c");
    if (scenario.bReplace) {
        Make(sTo, "old a");
    }
}

tRun FileWorld::Run(const Judge& judge)
{
    Cancelled() = false;
    const auto work = [&] {
        ScriptedOperations user;
        user.answer = {Choice::Replace, true};
        user.onProgress = [](const auto&) { return !Cancelled(); };
        desktop::ShellFileOperations operations(user, true);
        std::vector<std::string> paths;
        for (const std::string& sName : Names()) {
            paths.push_back(sFrom + '/' + sName);
        }
        operations.SHFileOperationA(
            Request(scenario.wFunc, paths, scenario.wFunc == platform::FO_DELETE ? "" : sTo));
        std::ostringstream said;
        said << user.outcome.nFilesDone << ' ' << user.outcome.bCancelled << '\n';
        for (const auto& each : user.outcome.notDone) {
            said << each.sPath << '\n' << each.sReason << '\n';
        }
        return said.str();
    };
    const auto plain = [&](const tCall& call, std::size_t n) {
        const bool bRefused = (call.sCall == "renameat2" && call.arguments[4] != 0) ||
                              (call.sCall == "openat" && (call.arguments[2] & O_TMPFILE) == O_TMPFILE) ||
                              call.sCall == "copy_file_range";
        const int nVerdict = judge(call, n);
        return nVerdict == 0 && scenario.bPlain && bRefused ? EINVAL : nVerdict;
    };
    tRun run;
    run.process = Supervise({m_sHere, m_sOther, sTrash}, work, plain);
    std::istringstream said(run.process.sSaid);
    said >> run.nDone >> run.bCancelled >> std::ws;
    for (std::string sPath, sReason; std::getline(said, sPath) && std::getline(said, sReason);) {
        run.reasons[sPath] = sReason;
    }
    return run;
}

tRun FileWorld::RunNext()
{
    m_bNext = true;
    if (scenario.bReplace) {
        Make(sTo, "old c");
    }
    return Run([](const tCall&, std::size_t) { return 0; });
}

std::vector<std::string> FileWorld::Names() const
{
    std::vector<std::string> names{"a"};
    if (scenario.wFunc == platform::FO_DELETE) {
        names.emplace_back("b");
    }
    if (m_bNext) {
        names.emplace_back("c");
    }
    return names;
}

void FileWorld::Cancel()
{
    Cancelled() = true;
}

std::vector<tFound> FileWorld::Find() const
{
    std::vector<tFound> found;
    std::error_code error;
    for (const std::string& sRoot : {m_sHere, m_sOther, fs::path(sTrash).parent_path().string()}) {
        for (const auto& each : fs::recursive_directory_iterator(sRoot, error)) {
            const std::string sPath = each.path().string();
            if (each.is_regular_file() && !each.is_symlink() && sPath.find("/info") == std::string::npos &&
                !sPath.starts_with(sPrivate) && each.file_size() < 1'000'000) {
                found.push_back({sPath, HomeOf(sPath), support::Content(sPath)});
            }
        }
    }
    return found;
}

bool FileWorld::IsDone(const std::string& sName) const
{
    const auto isMeant = [&](const std::string& sContent) {
        const std::string sText = Text(sContent);
        return bSeen ? sText.starts_with("mine") && sText.ends_with(' ' + sName)
                     : !sText.starts_with("private");
    };
    const bool bTrash = scenario.wFunc == platform::FO_DELETE;
    const std::string sWanted = (bTrash ? sFrom : sTo) + '/' + sName;
    const auto found = Find();
    return std::any_of(found.begin(), found.end(), [&](const tFound& there) {
        const auto isSource = [&](const tFound& each) {
            return each.sPath == sFrom + '/' + sName && each.sContent == there.sContent;
        };
        return there.sHome == sWanted && (there.sPath != sWanted) == bTrash && isMeant(there.sContent) &&
               (scenario.wFunc == platform::FO_COPY || std::none_of(found.begin(), found.end(), isSource));
    });
}

std::string FileWorld::PrivateState() const
{
    std::ostringstream state;
    for (const char* pName : {"", "/a", "/b"}) {
        struct stat status{};
        lstat((sPrivate + pName).c_str(), &status);
        state << status.st_ino << ' ' << status.st_ctim.tv_sec << '.' << status.st_ctim.tv_nsec << '\n';
    }
    return state.str();
}

std::string FileWorld::Lost() const
{
    std::string sWrong;
    std::set<std::string> safe;
    for (const tFound& each : Find()) {
        // Under its name, another that somebody else gave it, or restorable to such a place.
        const std::string sText = Text(each.sContent);
        const std::string sName = fs::path(each.sHome).filename().string();
        if (sName.starts_with(sText.substr(sText.rfind(' ') + 1)) || sText.starts_with("stray")) {
            safe.insert(each.sContent);
        }
        if (!sName.starts_with(".tallyfen-") && !known.contains(each.sContent)) {
            sWrong += "partial " + each.sPath + "; ";
        }
    }
    for (const std::string& sContent : required) {
        sWrong += safe.contains(sContent) ? "" : "lost '" + Text(sContent) + "'; ";
    }
    return sWrong + (PrivateState() == m_sPrivateBefore ? "" : "touched what was not named; ");
}

std::string FileWorld::LeftBehind() const
{
    std::string sLeft;
    std::error_code error;
    for (const std::string& sRoot : {m_sHere, m_sOther, sTrash}) {
        for (const auto& each : fs::recursive_directory_iterator(sRoot, error)) {
            const fs::path path = each.path();
            const bool bNote = path.extension() == ".trashinfo";
            const bool bHidden = path.filename().string().starts_with(".tallyfen-");
            const fs::path file = path.parent_path().parent_path() / "files" / path.stem();
            if (bHidden || (bNote && !fs::exists(fs::symlink_status(file)))) {
                sLeft += "left " + path.string() + "; ";
            }
        }
    }
    return sLeft;
}

std::string FileWorld::Wrong(const tRun& run) const
{
    std::string sWrong = Lost();
    const auto look = [&](bool bWrong, const std::string& sWhat) { sWrong += bWrong ? sWhat + "; " : ""; };
    look(run.process.bHung, "hangs");
    look(!run.Ended() && !run.process.bHung, "died of " + std::to_string(WTERMSIG(run.process.nStatus)));
    if (!run.Ended()) {
        return sWrong;
    }
    std::size_t nDone = 0;
    for (const std::string& sName : Names()) {
        const auto reason = run.reasons.find(sFrom + '/' + sName);
        const std::string sReason = reason == run.reasons.end() ? "" : reason->second;
        const bool bBefore = doneAnyway.contains(sName);
        const bool bDone = IsDone(sName);
        nDone += bDone || bBefore ? 1U : 0U;
        look(sReason.empty() && !run.bCancelled && !bDone && !bBefore, "claims " + sName);
        look(bDone && !bBefore && !sReason.empty() && sReason.find("trash") == sReason.npos &&
                 sReason.find("copied") == sReason.npos && sReason.find("moved, but") == sReason.npos,
             sName + " done but denied: " + sReason);
        look(!sReason.empty() && (!sReason.ends_with('.') || sReason.find('/') != sReason.npos),
             "no sentence: " + sReason);
    }
    look(run.nDone > nDone, "claims " + std::to_string(run.nDone) + " of " + std::to_string(nDone));
    return sWrong;
}

} // namespace support
