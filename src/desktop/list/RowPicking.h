// SPDX-License-Identifier: MIT
#pragma once

#include "ListView.h"

#include <cstddef>
#include <optional>
#include <vector>

namespace desktop {

/// The held modifier keys that affect the selection.
struct tHeld {
    bool bShift = false;
    bool bCtrl = false;
};

/// Applies the user's mouse and key input to the selected rows and the current row of a list, as is usual for
/// lists. A click selects only its row; with Ctrl it toggles the row; with Shift it selects the range from
/// the anchor to the row, and with both it adds this range. The anchor is the row last clicked without Shift.
/// Rows are counted from 0. In a single-selection list the modifier keys have no effect.
class RowPicking
{
public:
    explicit RowPicking(platform::ListView& list) : m_list(list) {}

    /// The left button was pressed over `row`, or over no row, which deselects everything but can start a
    /// drag. `nLine` is the row at that height, or the number of rows below the last one.
    void Press(std::optional<std::size_t> row, std::size_t nLine, tHeld held);

    /// The right button was pressed. If the row is selected, the selection stays.
    void PressRight(std::optional<std::size_t> row, tHeld held);

    /// The pointer has moved to a line with the left button held: the rows between the two lines are selected
    /// or, with Ctrl, get the state that the press gave to its own row.
    void DragTo(std::size_t nLine);
    /// The left button was released, which ends a drag.
    void Release();
    [[nodiscard]] bool Dragging() const { return m_drag != Drag::None; }

    /// A key moves to a row. With Ctrl alone the row only becomes the current one.
    void MoveTo(std::size_t nRow, tHeld held);

    /// The space key selects the current row.
    void PickCurrent(tHeld held);

    /// To be called when rows have been removed or moved.
    void Forget();

private:
    enum class Drag { None, Only, Add, Take };

    [[nodiscard]] std::size_t Anchor(std::size_t nRow);
    void SelectOnly(std::optional<std::size_t> row);
    void SelectTo(std::size_t nLine);

    platform::ListView& m_list;
    std::optional<std::size_t> m_anchor;
    Drag m_drag = Drag::None;
    std::size_t m_nStart = 0;           ///< the start of the range of the current click or drag
    std::optional<std::size_t> m_nLine; ///< its end, if it has one yet
    std::vector<bool> m_before;         ///< the selection before it
};

} // namespace desktop
