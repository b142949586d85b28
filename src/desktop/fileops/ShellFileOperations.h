// SPDX-License-Identifier: MIT
#pragma once

#include "FileGroups.h"
#include "NativeWindow.h"
#include "OperationDialogs.h"
#include "OperationPlan.h"
#include "OperationRun.h"
#include "OperationThread.h"
#include "ShellFiles.h"

#include <cstddef>
#include <functional>
#include <memory>
#include <optional>
#include <string>

namespace desktop {

/// The shell's file operations on a Linux desktop: deletes to the freedesktop.org trash, moves within a
/// volume by renaming, and lets copies appear under their names only when they are complete and on disk.
class ShellFileOperations final : public platform::ShellFiles
{
public:
    /// `dialogs` must outlive this object, and is called in the thread that requests an operation; the work
    /// is done in another one. With `bEachStep` the work stops at each step until it has been shown.
    explicit ShellFileOperations(OperationDialogs& dialogs, bool bEachStep = false)
        : m_dialogs(dialogs), m_bEachStep(bEachStep)
    {
    }

    /// Moves and copies need FOF_MULTIDESTFILES. Files are always deleted to the trash, with or without
    /// FOF_ALLOWUNDO. Also returns an error if the user has cancelled before anything was asked, or a file
    /// system does not respond to a cancel.
    int SHFileOperationA(const platform::SHFILEOPSTRUCT& request) override;
    bool LookAtEach(platform::WindowHandle hwnd, std::size_t nCount,
                    std::function<void(std::size_t)> look) override;
    long SHGetFileInfoA(const std::string& sPath, unsigned dwFileAttributes, unsigned uFlags) override;

    void UseGroups(platform::FileGroups& groups) override { m_pGroups = &groups; }

private:
    enum class Result { Ended, SparedToo, NotLooked, NoAnswer };
    enum class Looked { All, Cancelled, NoAnswer };

    Looked Look(const std::shared_ptr<OperationThread>& pThread, tOperation& soFar,
                std::function<void()> look);
    Result CarryOut(tOperationPlan& wanted, platform::tFileGroups groups, bool bAsk);
    std::optional<tOperation> Agreed(OperationRun& run);
    void BrokenOff(const tOperation& operation, const OperationThread& thread, bool bCancelled,
                   const std::string& sReason);

    OperationDialogs& m_dialogs;
    bool m_bEachStep;
    platform::FileGroups* m_pGroups = nullptr; ///< null: only the paths of the files are known
};

} // namespace desktop
