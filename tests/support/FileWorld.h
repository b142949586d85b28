// SPDX-License-Identifier: MIT
#pragma once

#include "Supervisor.h"

#include <map>
#include <ostream>
#include <set>

/// Two volumes with files on which an operation is carried out while something else happens, and what must
/// hold afterwards: every content is under its name, at its destination or restorable; nothing is claimed
/// that is not so.
namespace support {

/// An operation on file a of folder `from`, or on a and b to the trash.
struct tScenario {
    const char* pName; ///< as it stands in the names of tests
    unsigned wFunc;
    bool bFromOther = false; ///< the files are on the other volume, which has no trash
    bool bToOther = false;
    bool bReplace = false; ///< an a stands at the destination
    bool bPlain = false;   ///< the file systems rename only plainly, copy nothing, know no nameless files

    friend void PrintTo(const tScenario& scenario, std::ostream* pStream) { *pStream << scenario.pName; }
};

struct tFound {
    std::string sPath;
    std::string sHome; ///< see HomeOf
    std::string sContent;
};

/// Where the file at `sPath` belongs: there, or where its note in a trash says; empty without a note.
std::string HomeOf(const std::string& sPath);

/// One operation that has come to an end, or did not.
struct tRun {
    tSupervised process;
    std::size_t nDone = 0;
    bool bCancelled = false;
    std::map<std::string, std::string> reasons; ///< by the path of what was not done
    [[nodiscard]] bool Ended() const { return !process.sSaid.empty(); }
};

class FileWorld
{
public:
    /// Files are in folders of their own below `sHere`, which has the home trash, and `sOther`.
    FileWorld(std::string sHere, std::string sOther, std::string sTrash);

    /// Makes everything as it is before the operation.
    void Prepare(const tScenario& scenario);

    /// Carries it out, `judge` seeing each call on these files.
    tRun Run(const Judge& judge);

    /// Another operation of the kind on the same folders and on one file more, which nothing disturbs.
    tRun RunNext();

    /// Of the files that it is about.
    [[nodiscard]] std::vector<std::string> Names() const;

    /// The user cancels at the next opportunity. To be called from a judge.
    static void Cancel();

    [[nodiscard]] std::vector<tFound> Find() const;

    /// Whether that came about which the operation is to do with file `sName`.
    [[nodiscard]] bool IsDone(const std::string& sName) const;

    /// What is wrong now, after `run`; empty if nothing.
    [[nodiscard]] std::string Wrong(const tRun& run) const;

    /// The same of what holds even if the process was killed.
    [[nodiscard]] std::string Lost() const;

    /// Hidden files of ours and notes without a file.
    [[nodiscard]] std::string LeftBehind() const;

    /// The content that a file gets; what it is found by. The file's name is to be the last word of `sText`.
    static std::string Content(const std::string& sText);

    /// The content is to be there at the end.
    const std::string& Know(const std::string& sContent);

    /// The time that files get at first.
    static bool SetOldTime(const std::string& sPath);

    tScenario scenario{};
    std::string sFrom, sTo, sPrivate, sTrash;
    std::set<std::string> required;   ///< contents that must be there at the end
    std::set<std::string> known;      ///< contents that may be there
    std::set<std::string> doneAnyway; ///< names that were done already when somebody else acted, or by that
    bool bSeen = true; ///< the operation has had a look at its files: no others may take their place any more

private:
    void Make(const std::string& sFolder, const std::string& sText);
    [[nodiscard]] std::string PrivateState() const;

    std::string m_sHere;
    std::string m_sOther;
    std::string m_sPrivateBefore;
    bool m_bNext = false;
};

} // namespace support
