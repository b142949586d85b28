// SPDX-License-Identifier: MIT
#include "ConfirmationText.h"
#include "ListView.h"
#include "ScriptedOperations.h"
#include "TempTree.h"
#include "Texts.h"
#include "mFileGroups.h"

#include <algorithm>
#include <cstdlib>
#include <unistd.h>

namespace {

namespace fs = std::filesystem;
using desktop::Consent;
using enum platform::ComparedBy;

/// Groups of rows, "|" between groups: "+" for a selected row or "-", the file's name, "=" and its contents
/// as they were in the search; then what happened to it:
///   ! edited since   ~ touched   ? removed   ^ marked as gone   & another name of the file before
///   * lies in a trash   0 cannot be read   @ on another volume
struct tCase {
    const char* pName;
    platform::ComparedBy comparedBy;
    const char* pGroups;
    std::string sAsked; ///< the sentences, then the buttons; nothing for the plain question
    std::string sFirst; ///< what is left where it was after the first answer, then what is said of it
    std::string sAll = "the same"; ///< the same after the answer for all
};

const std::string kInTrash =
    "It lies in a trash already. Restore it from there, or empty the trash if it is to be gone for good.";
const std::string kDiffers = "Its contents differ from those of b, which was to stay.";
const std::string kNotRead = "You are not permitted to read it. So its contents could not be compared.";
const std::string kCopyNotRead = "Its contents could not be compared with those of b, which was to stay. You "
                                 "are not permitted to read it.";

const char* const kNoCopy = "“a” has no other copy that stays. [] [Move 1 File]";
const char* const kNoCopies = "None of them has another copy that stays. [] [Move All 2 Files]";
const char* const kHardLink =
    "“a” is another name of a file that stays, and so do its contents. [Move 1 File] []";
const char* const kChanged = "“a” has changed since the search. [] [Move 1 File]";
const char* const kNotCompared = "The contents of “a” were not compared: the search was by name and size. "
                                 "[Move 1 File If Identical] [Move 1 File]";

const tCase kCases[] = {
    {"one stays", Content, "+a=x -b=x", "", "b"},
    {"empty files", Content, "-a= +b=", "", "a"},
    {"two, both go", Content, "+a=x +b=x", kNoCopies, "ab", ""},
    {"one of two groups goes", Content, "+a=x +b=x | +c=y -d=y",
     "2 of them have no other copy that stays. [Move 1 File] [Move All 3 Files]", "abd", "d"},
    {"the only one", Content, "+a=x -b=x?", kNoCopy, "a", ""},
    {"the other one is marked as gone", Content, "+a=x -b=x^", kNoCopy, "ab", "b"},
    {"the other one lies in a trash", Content, "+a=x -b=x*", kNoCopy, "ab", "b"},
    {"one of two has gone", Content, "+a=x -b=x? -c=x", "", "c"},
    {"the selected one has gone", Content, "+a=x? +b=x -c=x", "", "c, a: It is no longer there."},
    {"all of them have gone", Content, "+a=x? +b=x?", "",
     ", a: It is no longer there., b: It is no longer there."},
    {"the selected one lies in a trash", Content, "+a=x* +b=x -c=x",
     "“a” cannot go: it lies in a trash already. [Move 1 File] []", "ac, a: " + kInTrash},
    {"two selected ones lie in a trash", Content, "+a=x* +b=x* +c=x -d=x",
     "2 more cannot go: they lie in a trash already. [Move 1 File] []",
     "abd, a: " + kInTrash + ", b: " + kInTrash},
    {"only one that lies in a trash", Content, "+a=x* -b=x", "", "ab, a: " + kInTrash},
    {"hard link", Content, "+a=x -b=&", kHardLink, "b"},
    {"hard links", Content, "+a=x +b=& -c=& +d=x",
     "2 of them are other names of files that stay, and so do their contents. [Move 3 Files] []", "c"},
    {"hard links, all selected", Content, "+a=x +b=&", kNoCopies, "ab", ""},
    {"hard link and copy", Content, "+a=x -b=& -c=x", "", "bc"},
    {"hard link edited", Content, "+a=x -b=&!", kHardLink, "b"},
    {"hard link unreadable", Content, "+a=x -b=&0", kHardLink, "b"},
    {"edited", Content, "+a=x! +b=x -c=x",
     "“a” has changed since the search. [Move 1 File] [Move All 2 Files]", "ac", "c"},
    {"touched", Content, "+a=x~ -b=x", kChanged, "ab", "b"},
    {"all edited", Content, "+a=x! +b=x! -c=x",
     "All of them have changed since the search. [] [Move All 2 Files]", "abc", "c"},
    {"the copy edited", Content, "+a=x -b=x!",
     "Every copy of “a” that stays has changed since the search. [] [Move 1 File]", "ab", "b"},
    {"the copy touched", Content, "+a=x +b=x -c=x~",
     "Every copy of them that stays has changed since the search. [] [Move All 2 Files]", "abc", "c"},
    {"one of two copies edited", Content, "+a=x -b=x! -c=x", "", "bc"},
    {"edited, and all selected", Content, "+a=x! +b=x",
     "None of them has another copy that stays. “a” has changed since the search. [] [Move All 2 Files]",
     "ab", ""},
    {"collision", Content, "+a=x -b=y", "", "ab, a: " + kDiffers},
    {"collision of one of two", Content, "+a=x -b=y -c=x", "", "bc"},
    {"unreadable", Content, "+a=x0 -b=y", "", "ab, a: " + kNotRead},
    {"the copy unreadable", Content, "+a=x -b=x0", "", "ab, a: " + kCopyNotRead},
    {"one of two copies unreadable", Content, "+a=x -b=x0 -c=x", "", "bc"},
    {"the copy on another volume", Content, "+a=x -b=x@", "", "b"},
    {"by name, same", Name, "+a=x -A=x",
     "The contents of “a” were not compared: the search was by name. [Move 1 File If Identical] [Move 1 "
     "File]",
     "A"},
    {"by name, other contents", Name, "+a=x +aa=y -A=x",
     "Their contents were not compared: the search was by name. "
     "[Move 2 Files If Identical] [Move All 2 Files]",
     "aaA, aa: Its contents differ from those of A, which was to stay.", "A"},
    {"by name, other sizes", Name, "+a=x +aa=yy +A=zz -AA=x",
     "2 of them differ in size from every file that stays; the search was by name. "
     "The contents of “a” were not compared: the search was by name. "
     "[Move 1 File If Identical] [Move All 3 Files]",
     "aaAAA", "AA"},
    {"by name, only other sizes", Name, "+a=xx -A=x",
     "“a” differs in size from every file that stays; the search was by name. [] [Move 1 File]", "aA", "A"},
    {"by name and size, same", NameAndSize, "+a=x -A=x", kNotCompared, "A"},
    {"by name and size, other contents", NameAndSize, "+a=x -A=y", kNotCompared,
     "aA, a: Its contents differ from those of A, which was to stay.", "A"},
    {"by name and size, hard link", NameAndSize, "+a=x -A=&", kHardLink, "A"},
};

/// A list with rows of files, and the shell before them.
class Rows final : private platform::FileGroups
{
public:
    explicit Rows(const tCase& what) : m_case(what)
    {
        lv.MultiSelect = true;
        fs::remove_all(std::getenv("HOME") + std::string("/share"));
        fs::permissions(tree.sRoot, fs::perms::all);
        fs::permissions(other.sRoot, fs::perms::all);
        MakeRows();
    }

    /// Has the selected files go, with that answer; what was asked, and what came of it.
    std::pair<std::string, std::string> Delete(Consent consent)
    {
        const support::Unprivileged user;
        support::ScriptedOperations dialogs;
        dialogs.consent = consent;
        desktop::ShellFileOperations shell(dialogs);
        shell.UseGroups(*this);
        EXPECT_EQ(shell.SHFileOperationA(support::Request(platform::FO_DELETE, m_selected)), 0);
        return {Asked(dialogs.confirmation), Left(dialogs.outcome)};
    }

private:
    void MakeRows()
    {
        std::istringstream groups(m_case.pGroups);
        std::vector<std::pair<std::string, std::string>> changes;
        int nMark = 2;
        for (std::string sFile; groups >> sFile;) {
            if (sFile == "|") {
                EndGroup();
                nMark = 2;
                continue;
            }
            const std::size_t nIs = sFile.find('=');
            const std::size_t nEnd = std::min(sFile.find_first_of("!~?^&*0@"), sFile.size());
            const std::string sChange = sFile.substr(nEnd);
            const auto has = [&](char c) { return sChange.find(c) != std::string::npos; };
            const std::string sName = (has('*') ? ".Trash-65534/files/" : "") + sFile.substr(1, nIs - 1);
            const std::string sPath =
                (has('@') ? other : tree).File(sName, sFile.substr(nIs + 1, nEnd - nIs - 1));
            if (has('&')) {
                fs::remove(sPath);
                fs::create_hard_link(m_paths.back(), sPath);
            }
            EXPECT_EQ(chown(sPath.c_str(), geteuid() == 0 ? 65534 : geteuid(), static_cast<gid_t>(-1)), 0);
            Row(sPath, has('^') ? nMark + 3 : nMark, sFile[0] == '+');
            nMark = 3;
            changes.emplace_back(sPath, sChange);
        }
        EndGroup();
        for (const auto& [sPath, sChange] : changes) {
            std::for_each(sChange.begin(), sChange.end(), [&path = sPath](char c) { Change(path, c); });
        }
    }

    void EndGroup()
    {
        auto row = lv.ListItems(lv.ListItems.Count());
        row.SetSmallIcon(row.SmallIcon() == 3 ? 4 : 7);
    }

    void Row(const std::string& sPath, int nMark, bool bSelected)
    {
        const std::size_t nName = sPath.rfind('/') + 1;
        const auto identity = desktop::LookAt(sPath).Identity();
        auto row = lv.ListItems.Add(sPath, sPath.substr(nName), nMark);
        row->SetSubItems(1, platform::FormatNumber(identity.cySize));
        row->SetSubItems(2, platform::FormatDateTime(desktop::DateOf(identity)));
        row->SetSubItems(3, sPath.substr(0, nName));
        row->SetSelected(bSelected);
        m_paths.push_back(sPath);
        if (bSelected) {
            m_selected.push_back(sPath);
        }
    }

    static void Change(const std::string& sPath, char c)
    {
        if (c == '!') {
            std::ofstream(sPath, std::ios::app) << "more";
        } else if (c == '~') {
            fs::last_write_time(sPath, fs::last_write_time(sPath) - std::chrono::hours(1));
        } else if (c == '?') {
            fs::remove(sPath);
        } else if (c == '0') {
            fs::permissions(sPath, fs::perms::none);
        }
    }

    platform::tFileGroups GroupsOf(std::span<const std::string> paths) override
    {
        return results::GroupsOf(lv, m_case.comparedBy, paths);
    }

    static std::string Asked(const desktop::tConfirmation& confirmation)
    {
        const desktop::ConfirmationText words(confirmation);
        const QString sAsked = words.Concerns().join(QLatin1Char(' ')) + QLatin1String(" [") +
                               words.WithCopyButton() + QLatin1String("] [") + words.AllButton() +
                               QLatin1Char(']');
        return confirmation.concerns.empty() ? "" : QString(sAsked).remove(QLatin1Char('&')).toStdString();
    }

    std::string Left(const desktop::tOperationOutcome& outcome) const
    {
        std::string sLeft;
        for (const std::string& sPath : m_paths) {
            sLeft += fs::exists(sPath) ? sPath.substr(sPath.rfind('/') + 1) : "";
        }
        for (const auto& [sName, sReason] : support::Reasons(outcome)) {
            sLeft += ", " + sName + ": " + sReason;
        }
        for (std::size_t n = 0; (n = sLeft.find(tree.sRoot)) != std::string::npos;) {
            sLeft.erase(n, tree.sRoot.size() + 1);
        }
        return sLeft;
    }

    const tCase& m_case;
    support::TempTree tree{std::getenv("HOME")};
    support::TempTree other;
    platform::Form form;
    platform::ListView lv{form};
    std::vector<std::string> m_paths, m_selected;
};

TEST(Confirmation, SaysWhatStaysAndKeepsToTheAnswer)
{
    for (const tCase& each : kCases) {
        SCOPED_TRACE(each.pName);
        EXPECT_EQ(Rows(each).Delete(Consent::WithCopy), std::pair(each.sAsked, each.sFirst));
        EXPECT_EQ(Rows(each).Delete(Consent::All),
                  std::pair(each.sAsked, each.sAll == "the same" ? each.sFirst : each.sAll));
    }
}

} // namespace
