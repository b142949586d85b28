// SPDX-License-Identifier: MIT
#pragma once

#include "Control.h"
#include "FileGroups.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

namespace desktop {

enum class FileOperation { Trash, Move, Copy };

/// What is about to be done.
struct tOperation {
    FileOperation operation = FileOperation::Trash;
    std::size_t nFiles = 0;
    std::int64_t cyTotal = 0;              ///< bytes in all of them
    platform::WindowHandle hwnd = nullptr; ///< over which to ask
    std::size_t nMissing = 0;              ///< what was asked for besides and is no file any more
};

/// Why some files of an operation deserve a thought before they go to the trash.
enum class Concern {
    NoOtherCopy,   ///< nothing of their group stays
    FileChanged,   ///< they have changed since the search
    CopiesChanged, ///< every copy that stays has
    OtherSize,     ///< the search did not go by contents, and nothing that stays is of their size
    NotCompared,   ///< the search did not go by contents
    SameFileStays, ///< what stays is the same file by another name
    InTrash,       ///< they cannot go: they lie in a trash
    NoTrash        ///< they cannot go: their volume has none
};

/// Files for which the same is to be said.
struct tConcern {
    Concern concern = Concern::NoOtherCopy;
    std::vector<std::string> paths; ///< exact bytes
    std::string sVolume{};          ///< NoTrash: the top folder of their volume
};

/// What the user is to agree to.
struct tConfirmation {
    tOperation operation;
    platform::ComparedBy comparedBy = platform::ComparedBy::Content; ///< how the files were found alike
    std::size_t nWithCopy = 0;                                       ///< of which a copy stays
    std::vector<tConcern> concerns{}; ///< none without files, the gravest first
    std::string sOnly{};              ///< the path of the file, if it is only one
};

/// The user's word on it.
enum class Consent { Cancel, WithCopy, All };

/// The room that an operation needs at its destination, and that there is.
struct tRoom {
    std::size_t nFiles = 0; ///< that need it
    std::int64_t cyNeeded = 0;
    std::int64_t cyFree = 0;
};

/// A file as a question shows it. The path is exact bytes.
struct tFileFacts {
    std::string sPath;
    std::int64_t cySize = 0; ///< bytes
    double dtDate = 0;       ///< last write in local time: days since 30 December 1899; 0 if unknown
};

/// The user's word on a file that stands where another one is to go.
struct tReplaceAnswer {
    enum class Choice { Skip, Replace, Cancel };
    Choice choice = Choice::Skip;
    bool bForAll = false; ///< the same for all further files of the operation
};

/// How far an operation has come.
struct tOperationProgress {
    std::string sPath; ///< the file in hand, exact bytes
    std::size_t nFilesDone = 0;
    std::int64_t cyDone = 0; ///< bytes, of all files
};

/// A file that was not dealt with as asked, and why: a sentence without the path, "The folder is read-only."
struct tNotDone {
    std::string sPath;
    std::string sReason;
    bool bSpared = false; ///< it could go, but no copy of it was found to stay
};

/// How an operation ended.
struct tOperationOutcome {
    std::size_t nFilesDone = 0;
    bool bCancelled = false;
    std::vector<tNotDone> notDone{}; ///< neither files that the user skipped nor those left by a cancel
    std::vector<tNotDone> remarks{}; ///< what there is to know of files that were dealt with
    std::size_t nSkipped = 0;        ///< by the user's word
    std::size_t nReplaced = 0;       ///< files that were at the destination
};

/// The user, to whom an operation on files turns.
class OperationDialogs
{
public:
    virtual ~OperationDialogs() = default;

    /// The files are being looked at, before anything is asked. Called often while that lasts, with how many
    /// have been found so far; then comes one of the others or nothing. False: the user has cancelled.
    virtual bool Looking(const tOperation& /*soFar*/) { return true; }

    /// Asks once for the whole set, before anything goes to the trash.
    virtual Consent Confirm(const tConfirmation& confirmation) = 0;

    /// Asks before anything is moved or copied to where there is not the room for all of it. False: nothing
    /// is.
    virtual bool AskRoom(const tOperation& operation, const tRoom& room) = 0;

    /// Asks about one file that would be replaced. `bIdentical`: both are the same to the byte.
    virtual tReplaceAnswer AskReplace(const tFileFacts& source, const tFileFacts& target,
                                      bool bIdentical) = 0;

    /// The operation begins; it ends with Finished. Whatever takes longer than a moment shows its progress.
    virtual void Started(const tOperation& operation) = 0;

    /// Called every few milliseconds, also while nothing moves; it keeps the windows alive, and is cheap when
    /// called again at once. False: the user has cancelled.
    virtual bool Progress(const tOperationProgress& progress) = 0;

    /// Takes the progress down and says what was skipped, replaced and not done; nothing if all went well.
    /// True if the files that were spared are to go to the trash after all.
    virtual bool Finished(const tOperation& operation, const tOperationOutcome& outcome) = 0;
};

} // namespace desktop
