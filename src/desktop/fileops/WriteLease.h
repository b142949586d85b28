// SPDX-License-Identifier: MIT
#pragma once

namespace desktop {

/// Finds out who may write to a file without any further trace, by a lease for reading. While this lives,
/// whoever opens the file for writing waits, for 45 seconds at most; who holds it for longer than moments
/// looks now and then whether somebody does. It sees nothing of files of others, and nothing on some file
/// systems.
class WriteLease
{
public:
    /// `h` is open for reading only, and must outlive it.
    explicit WriteLease(int h);
    WriteLease(const WriteLease&) = delete;
    WriteLease& operator=(const WriteLease&) = delete;
    ~WriteLease();

    /// True if nobody can write to the file unnoticed.
    [[nodiscard]] bool IsHeld() const { return m_bHeld; }

    /// True if somebody has the file open or mapped for writing, or is about to open it.
    [[nodiscard]] bool IsOpenForWriting() const;

private:
    int m_h;
    bool m_bHeld = false;
    bool m_bRefused = false;
};

} // namespace desktop
