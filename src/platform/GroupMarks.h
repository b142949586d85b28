// SPDX-License-Identifier: MIT
#pragma once

namespace platform {

/// The icon of a folder.
inline constexpr int kFolderIcon = 1;

/// The icons that mark a row's position in its group.
inline constexpr int kMarkFirst = 2;
inline constexpr int kMarkMiddle = 3;
inline constexpr int kMarkLast = 4;

/// Offset from each of these marks to its variant for a file that has gone.
inline constexpr int kMarksGone = 3;

constexpr bool IsGoneMark(int nMark)
{
    return nMark > kMarkLast;
}

/// The mark for the same position of a file that has not gone.
constexpr int PositionMark(int nMark)
{
    return IsGoneMark(nMark) ? nMark - kMarksGone : nMark;
}

} // namespace platform
