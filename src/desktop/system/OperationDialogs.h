// SPDX-License-Identifier: MIT
#pragma once

#include "FileGroups.h"
#include "NativeWindow.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

namespace desktop {

enum class FileOperation { Trash, Move, Copy };

/// An operation about to be carried out.
struct tOperation {
    FileOperation operation = FileOperation::Trash;
    std::size_t nFiles = 0;
    std::int64_t cyTotal = 0;              ///< total size in bytes
    platform::WindowHandle hwnd = nullptr; ///< owner of the questions
    std::size_t nMissing = 0;              ///< requested files that do not exist any more
};

/// Reasons to warn about files before they go to the trash.
enum class Concern {
    NoOtherCopy,   ///< no file of their group stays
    FileChanged,   ///< they have changed since the search
    CopiesChanged, ///< all copies that stay have changed
    OtherSize,     ///< the search did not compare contents, and no file that stays has the same size
    NotCompared,   ///< the search did not compare contents
    SameFileStays, ///< what stays is the same file under another name
    InTrash,       ///< they cannot be deleted: they are in a trash
    NoTrash        ///< they cannot be deleted: their volume has no trash
};

/// Files with the same concern.
struct tConcern {
    Concern concern = Concern::NoOtherCopy;
    std::vector<std::string> paths; ///< exact bytes
    std::string sVolume{};          ///< for NoTrash: the top folder of their volume
};

/// A question for the user's consent.
struct tConfirmation {
    tOperation operation;
    platform::ComparedBy comparedBy = platform::ComparedBy::Content; ///< how the search compared the files
    std::size_t nWithCopy = 0;                                       ///< files of which a copy stays
    std::vector<tConcern> concerns{}; ///< only those that have files, most serious first
    std::string sOnly{};              ///< the path of the file if there is only one
};

/// The user's answer to it.
enum class Consent { Cancel, WithCopy, All };

/// The disk space needed at the destination, and the space available.
struct tRoom {
    std::size_t nFiles = 0; ///< number of files that need it
    std::int64_t cyNeeded = 0;
    std::int64_t cyFree = 0;
};

/// A file as shown in a question. The path is exact bytes.
struct tFileFacts {
    std::string sPath;
    std::int64_t cySize = 0; ///< bytes
    double dtDate = 0;       ///< last modification in local time: days since 30 December 1899; 0 if unknown
};

/// The user's answer to whether an existing file is to be replaced.
struct tReplaceAnswer {
    enum class Choice { Skip, Replace, Cancel };
    Choice choice = Choice::Skip;
    bool bForAll = false; ///< use the same answer for all further files of the operation
};

/// The progress of an operation.
struct tOperationProgress {
    std::string sPath; ///< the current file, exact bytes
    std::size_t nFilesDone = 0;
    std::int64_t cyDone = 0; ///< bytes of all files together
};

/// A file that was not processed as requested, and the reason: a sentence without the path, "The folder is
/// read-only."
struct tNotDone {
    std::string sPath;
    std::string sReason;
    bool bSpared = false; ///< it could be deleted, but no copy was found that stays
};

/// The result of an operation.
struct tOperationOutcome {
    std::size_t nFilesDone = 0;
    bool bCancelled = false;
    std::vector<tNotDone> notDone{}; ///< without the files that the user skipped or that a cancel left
    std::vector<tNotDone> remarks{}; ///< remarks on files that were processed
    std::size_t nSkipped = 0;        ///< at the user's request
    std::size_t nReplaced = 0;       ///< files at the destination
};

/// The user interface of file operations.
class OperationDialogs
{
public:
    virtual ~OperationDialogs() = default;

    /// Called frequently while files are examined, with the number and size of those found so far. Shows this
    /// if it takes more than a moment. Returns false if the user has cancelled.
    virtual bool Looking(const tOperation& /*soFar*/) { return true; }

    /// Closes what Looking has shown. Called before any question, also without a call of Looking.
    virtual void LookingEnded() {}

    /// Asks once for all files, before anything goes to the trash.
    virtual Consent Confirm(const tConfirmation& confirmation) = 0;

    /// Asks before a move or copy to a destination without enough space. Returns false if nothing is to be
    /// moved or copied.
    virtual bool AskRoom(const tOperation& operation, const tRoom& room) = 0;

    /// Asks about a file that would be replaced. `bIdentical`: both have the same content.
    virtual tReplaceAnswer AskReplace(const tFileFacts& source, const tFileFacts& target,
                                      bool bIdentical) = 0;

    /// The operation starts; Finished marks its end. Progress is shown if it takes more than a moment.
    virtual void Started(const tOperation& operation) = 0;

    /// Called every few milliseconds, even if nothing moves; keeps the windows responsive, and is cheap if
    /// called again at once. Returns false if the user has cancelled.
    virtual bool Progress(const tOperationProgress& progress) = 0;

    /// Closes the progress window and reports skipped, replaced and unprocessed files; shows nothing if all
    /// went well. Returns true if the spared files are to go to the trash after all.
    virtual bool Finished(const tOperation& operation, const tOperationOutcome& outcome) = 0;
};

} // namespace desktop
