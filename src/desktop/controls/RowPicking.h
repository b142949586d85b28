// SPDX-License-Identifier: MIT
#pragma once

#include "ListView.h"

#include <cstddef>
#include <optional>
#include <vector>

namespace desktop {

/// The keys held that change what a press does to the selection.
struct tHeld {
    bool bShift = false;
    bool bCtrl = false;
};

/// What the user's mouse and keys do to the selected rows and the current row of a list, as lists everywhere
/// have it. A press selects its row alone; with Ctrl it turns the row's selection round; with Shift it
/// selects from the anchor to the row, and with both it adds these rows. The anchor is the row last pressed
/// without Shift. Rows are counted from 0. A list of one selected row at a time knows the plain press only.
class RowPicking
{
public:
    explicit RowPicking(platform::ListView& list) : m_list(list) {}

    /// The left button goes down over row `row` or over none, which selects nothing but starts a drag from
    /// line `nLine`: the row at that height, or the number of rows below the last.
    void Press(std::optional<std::size_t> row, std::size_t nLine, tHeld held);

    /// The right button goes down: a selected row keeps the others selected.
    void PressRight(std::optional<std::size_t> row, tHeld held);

    /// The pointer moves to a line while the left button is down: the rows between the two lines become
    /// selected, or with Ctrl what the press made of its own row.
    void DragTo(std::size_t nLine);
    void Release();
    [[nodiscard]] bool Dragging() const { return m_drag != Drag::None; }

    /// A key leads to a row. With Ctrl alone it only becomes the current one.
    void MoveTo(std::size_t nRow, tHeld held);

    /// The space bar selects the current row.
    void PickCurrent(tHeld held);

    /// Rows have gone or changed their places.
    void Forget();

private:
    enum class Drag { None, Only, Add, Take };

    [[nodiscard]] std::size_t Anchor(std::size_t nRow);
    void SelectOnly(std::optional<std::size_t> row);
    void SelectTo(std::size_t nLine);

    platform::ListView& m_list;
    std::optional<std::size_t> m_anchor;
    Drag m_drag = Drag::None;
    std::size_t m_nStart = 0;           ///< where the rows begin that the press or drag takes
    std::optional<std::size_t> m_nLine; ///< where they end, if it has taken any yet
    std::vector<bool> m_before;         ///< what was selected before
};

} // namespace desktop
