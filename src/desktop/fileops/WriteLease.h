// SPDX-License-Identifier: MIT
#pragma once

namespace desktop {

/// Detects writers that leave no other trace, by a read lease. During its lifetime, opening the file for
/// writing blocks for up to 45 seconds; users that hold it for longer than a moment must check for waiting
/// writers now and then. It does not work for files of other users and on some file systems.
class WriteLease
{
public:
    /// `h` must be open for reading only and outlive this object.
    explicit WriteLease(int h);
    WriteLease(const WriteLease&) = delete;
    WriteLease& operator=(const WriteLease&) = delete;
    ~WriteLease();

    /// True if nobody can write to the file unnoticed.
    [[nodiscard]] bool IsHeld() const { return m_bHeld; }

    /// True if the file is open or mapped for writing, or is about to be opened.
    [[nodiscard]] bool IsOpenForWriting() const;

private:
    int m_h;
    bool m_bHeld = false;
    bool m_bRefused = false;
};

} // namespace desktop
