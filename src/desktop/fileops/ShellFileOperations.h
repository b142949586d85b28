#pragma once

#include "OperationDialogs.h"
#include "OperationPlan.h"
#include "ShellFiles.h"

#include <functional>
#include <string>
#include <vector>

namespace desktop {

/// The shell's file operations with the means of a Linux desktop: the freedesktop.org trash, moves within a
/// volume as renames, copies that appear under their names only when whole and on the disk.
class ShellFileOperations final : public platform::ShellFiles
{
public:
    /// `dialogs` must outlive it.
    explicit ShellFileOperations(OperationDialogs& dialogs) : m_dialogs(dialogs) {}

    /// Moves and copies need FOF_MULTIDESTFILES; what is deleted goes to the trash, with FOF_ALLOWUNDO or
    /// without.
    int SHFileOperationA(const platform::SHFILEOPSTRUCT& request) override;
    long SHGetFileInfoA(const std::string& sPath, unsigned dwFileAttributes, unsigned uFlags) override;

    void UseGroups(platform::FileGroups& groups) override { m_pGroups = &groups; }

private:
    using Files = std::vector<const tPlannedFile*>;
    using Work = std::function<tEnding(const tPlannedFile& file, const ProgressCall& goOn)>;

    void Trash(const platform::SHFILEOPSTRUCT& request, tOperationPlan& plan);
    void Transfer(tOperationPlan& plan);
    Files CarryOut(tOperation operation, const Files& files, std::vector<tNotDone> notDone, const Work& work);

    OperationDialogs& m_dialogs;
    platform::FileGroups* m_pGroups = nullptr; ///< none: nothing is known of the files but their paths
};

} // namespace desktop
