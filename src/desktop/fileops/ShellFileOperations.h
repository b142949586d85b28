#pragma once

#include "OperationDialogs.h"
#include "OperationPlan.h"
#include "ShellFiles.h"

#include <string>

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

private:
    void CarryOut(tOperationPlan& plan);

    OperationDialogs& m_dialogs;
};

} // namespace desktop
