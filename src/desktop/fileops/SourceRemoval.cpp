// SPDX-License-Identifier: MIT
#include "SourceRemoval.h"

#include "HiddenName.h"
#include "Renaming.h"
#include "Retried.h"

#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>
#include <utility>

namespace desktop {
namespace {

/// A file that is moved out of the way for a moment. Its hidden name ends in the original name, which a later
/// run uses if this one is terminated; if that makes the name too long, the file is moved into a hidden
/// folder instead.
class SetAside
{
public:
    explicit SetAside(const FolderEntry& entry) : m_from(entry.Name()) {}
    SetAside(const SetAside&) = delete;
    SetAside& operator=(const SetAside&) = delete;
    ~SetAside()
    {
        if (!m_sFolder.empty()) {
            Retried([&] { return unlinkat(m_from.hFolder, m_sFolder.c_str(), AT_REMOVEDIR); });
        }
    }

    /// Returns 0, or the error number if nothing has been changed.
    int Begin()
    {
        m_aside = {m_from.hFolder, HiddenName(HiddenKind::Source, m_from.sName)};
        int nError = m_aside.sName.empty() ? EAGAIN : RenameWithoutReplacing(m_from, m_aside);
        if (nError == ENAMETOOLONG) {
            nError = MakeFolder();
            nError = nError == 0 ? RenameWithoutReplacing(m_from, m_aside) : nError;
        }
        return nError;
    }

    [[nodiscard]] tLook Look() const { return LookAt(m_aside.hFolder, m_aside.sName); }

    [[nodiscard]] int Remove() const
    {
        return Retried([&] { return unlinkat(m_aside.hFolder, m_aside.sName.c_str(), 0); }) == 0 ? 0 : errno;
    }

    /// The end of a sentence that says where the file is now.
    [[nodiscard]] std::string PutBack() const
    {
        return RenameWithoutReplacing(m_aside, m_from) == 0
                   ? ""
                   : " Its name has been taken meanwhile. It is in its folder as " +
                         (m_sFolder.empty() ? m_aside.sName : m_sFolder) + '.';
    }

private:
    int MakeFolder()
    {
        const std::string sFolder = HiddenName(HiddenKind::Source);
        if (Retried([&] { return mkdirat(m_from.hFolder, sFolder.c_str(), S_IRWXU); }) != 0) {
            return errno;
        }
        m_sFolder = sFolder;
        m_folder = Descriptor(Retried([&] {
            return openat(m_from.hFolder, sFolder.c_str(), O_PATH | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC);
        }));
        m_aside = {m_folder.Get(), m_from.sName};
        return m_folder.IsOpen() ? 0 : errno;
    }

    const tName& m_from;
    tName m_aside;
    std::string m_sFolder; ///< the folder created for it, if any
    Descriptor m_folder;
};

/// Why the file that was set aside must not be removed; empty if it may.
std::string WhyNot(const SetAside& aside, const HeldFile& file, int hSource, const WriteLease& lease)
{
    const tLook set = LookAt(hSource);
    if (!aside.Look().IsSameFileAs(LookAt(file.Get()))) {
        return "Something else took its place in that moment.";
    }
    if (lease.IsOpenForWriting()) {
        return kOpenForWriting;
    }
    // Checked after the lease, so that everything written before is detected.
    const tEnding still = IsStill(aside.Look(), file.Expected());
    return still.IsDone() && IsTouched(hSource, set.status) ? kChanged : still.sReason;
}

} // namespace

tEnding RemoveSource(const HeldFile& file, int hSource, const Status& before, const WriteLease& lease,
                     const std::function<std::string()>& lastLook)
{
    // If the file system does not support locks, a later run cannot tell that this one is running, and leaves
    // the file alone.
    Retried([&] { return flock(hSource, LOCK_SH | LOCK_NB); });
    tEnding ending = file.IsStillThere();
    if (!ending.IsDone()) {
        return ending;
    }
    // The lease is held across the rename, since the rename itself changes the ctime, which would hide a
    // write at that moment.
    if (lease.IsOpenForWriting()) {
        return tEnding::NotDone(kOpenForWriting);
    }
    if (IsTouched(hSource, before)) {
        return tEnding::NotDone(kChanged);
    }
    SetAside aside(file.Entry());
    int nError = aside.Begin();
    if (nError != 0) {
        return tEnding::NotDone(Reason(nError, Step::Remove));
    }
    std::string sWhyNot = WhyNot(aside, file, hSource, lease);
    sWhyNot = sWhyNot.empty() ? lastLook() : sWhyNot;
    sWhyNot = sWhyNot.empty() && lease.IsOpenForWriting() ? kOpenForWriting : sWhyNot;
    if (sWhyNot.empty()) {
        nError = aside.Remove();
        if (nError == 0) {
            return {};
        }
        sWhyNot = Reason(nError, Step::Remove);
    }
    return tEnding::NotDone(sWhyNot + aside.PutBack());
}

} // namespace desktop
