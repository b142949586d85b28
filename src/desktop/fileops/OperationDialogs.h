#pragma once

#include "Control.h"

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
};

/// How an operation ended.
struct tOperationOutcome {
    std::size_t nFilesDone = 0;
    bool bCancelled = false;
    std::vector<tNotDone> notDone{}; ///< neither files that the user skipped nor those left by a cancel
    std::vector<tNotDone> remarks{}; ///< what there is to know of files that were dealt with
};

/// The user, to whom an operation on files turns.
class OperationDialogs
{
public:
    virtual ~OperationDialogs() = default;

    /// The files are being looked at, before anything is asked. Called often while that lasts, with how many
    /// have been found so far; then comes one of the others or nothing. False: the user has cancelled.
    virtual bool Looking(const tOperation& /*soFar*/) { return true; }

    /// Asks once for the whole set, before anything is done. False: nothing is to be done.
    virtual bool Confirm(const tOperation& operation) = 0;

    /// Asks about one file that would be replaced.
    virtual tReplaceAnswer AskReplace(const tFileFacts& source, const tFileFacts& target) = 0;

    /// The operation begins; it ends with Finished. Whatever takes longer than a moment shows its progress.
    virtual void Started(const tOperation& operation) = 0;

    /// Called every few milliseconds, also while nothing moves; it keeps the windows alive, and is cheap when
    /// called again at once. False: the user has cancelled.
    virtual bool Progress(const tOperationProgress& progress) = 0;

    /// Takes the progress down and says what was not done; nothing if all went well.
    virtual void Finished(const tOperation& operation, const tOperationOutcome& outcome) = 0;
};

} // namespace desktop
