// SPDX-License-Identifier: MIT
#include "Reasons.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <system_error>

namespace desktop {
namespace {

struct tReason {
    int nError;
    Step step;
    const char* pSentence;
};

constexpr const char* kGone = "It is no longer there.";
constexpr const char* kFolderGone = "The destination folder is no longer there.";
constexpr const char* kFull = "There is no space left on the destination.";
constexpr const char* kTrashFull = "There is no space left for the trash.";
constexpr const char* kReadOnly = "The disk that it is on is read-only.";
constexpr const char* kMayNotRemove = "You are not permitted to remove it from its folder.";
constexpr const char* kMayNotWrite = "You are not permitted to change the destination folder.";
constexpr const char* kInUse = "It is in use by the system.";
constexpr const char* kDamaged = "The file system of the destination is damaged.";
constexpr const char* kDiskError = "The disk that it is on reported an error.";

constexpr std::array kReasons{
    tReason{ENOENT, Step::Read, kGone},
    tReason{ENOENT, Step::Remove, kGone},
    tReason{ENOENT, Step::Trash, kGone},
    tReason{ENOENT, Step::Write, kFolderGone},
    tReason{ESTALE, Step::Write, kFolderGone},
    tReason{ENOTDIR, Step::Read, kGone},
    tReason{ENOTDIR, Step::Write, "The destination is not a folder."},
    tReason{ELOOP, Step::Read, "It has become a link."},
    tReason{EACCES, Step::Read, "You are not permitted to read it."},
    tReason{EPERM, Step::Read, "You are not permitted to read it."},
    tReason{EACCES, Step::Remove, kMayNotRemove},
    tReason{EPERM, Step::Remove, kMayNotRemove},
    tReason{EACCES, Step::Trash, kMayNotRemove},
    tReason{EPERM, Step::Trash, kMayNotRemove},
    tReason{EACCES, Step::Write, kMayNotWrite},
    tReason{EPERM, Step::Write, kMayNotWrite},
    tReason{EROFS, Step::Remove, kReadOnly},
    tReason{EROFS, Step::Trash, kReadOnly},
    tReason{EROFS, Step::Write, "The destination is read-only."},
    tReason{ENOSPC, Step::Write, kFull},
    tReason{EDQUOT, Step::Write, kFull},
    tReason{ENOSPC, Step::Trash, kTrashFull},
    tReason{EDQUOT, Step::Trash, kTrashFull},
    tReason{EFBIG, Step::Write, "It is too large for the destination."},
    tReason{EBUSY, Step::Remove, kInUse},
    tReason{EBUSY, Step::Trash, kInUse},
    tReason{EIO, Step::Read, kDiskError},
    tReason{EIO, Step::Remove, kDiskError},
    tReason{EIO, Step::Trash, kDiskError},
    tReason{EIO, Step::Write, "The disk of the destination reported an error."},
    tReason{EBADMSG, Step::Write, kDamaged},
    tReason{EUCLEAN, Step::Write, kDamaged},
    tReason{ENAMETOOLONG, Step::Read, "Its path is too long."},
    tReason{ENAMETOOLONG, Step::Write, "Its name or the path to the destination is too long."},
    tReason{ENAMETOOLONG, Step::Trash, "Its path is too long for the trash."},
    tReason{EEXIST, Step::Write, "In the meantime something else has got its name at the destination."},
    tReason{EOPNOTSUPP, Step::Write, "The destination has no safe way to give it its name."},
    tReason{ELOOP, Step::Write, "One of the folders on the way to the destination has become a link."},
    tReason{EOPNOTSUPP, Step::Trash, "The volume that it is on has no trash."},
    tReason{EXDEV, Step::Trash, "The volume that it is on has no trash."},
    tReason{ESTALE, Step::Trash, "Another program has come in between."},
    tReason{ESTALE, Step::Remove, "Another program has come in between."},
    tReason{ENOENT, Step::Enter, kGone},
    tReason{ENOTDIR, Step::Enter, kGone},
    tReason{ELOOP, Step::Enter, "One of the folders that it is in has become a link."},
    tReason{ESTALE, Step::Enter, "Its folder is no longer where it was."},
    tReason{EACCES, Step::Enter, "You are not permitted to enter the folder that it is in."},
    tReason{EIO, Step::Enter, kDiskError},
    tReason{ENOENT, Step::Note, "The trash is no longer where it was."},
    tReason{EACCES, Step::Note, "You are not permitted to change the trash."},
    tReason{EPERM, Step::Note, "You are not permitted to change the trash."},
    tReason{EROFS, Step::Note, "The disk that the trash is on is read-only."},
    tReason{ENOSPC, Step::Note, kTrashFull},
    tReason{EDQUOT, Step::Note, kTrashFull},
    tReason{EIO, Step::Note, "The disk that the trash is on reported an error."},
    tReason{ENAMETOOLONG, Step::Note, "Its name is too long for the trash."},
};

} // namespace

std::string Reason(int nError, Step step)
{
    const auto* pReason = std::find_if(kReasons.begin(), kReasons.end(), [&](const tReason& reason) {
        return reason.nError == nError && reason.step == step;
    });
    return pReason != kReasons.end() ? pReason->pSentence : std::generic_category().message(nError) + '.';
}

} // namespace desktop
