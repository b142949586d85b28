#pragma once

#include "ListView.h"

namespace support {

/// Rows that nobody sees.
struct ScriptedRows final : platform::ListViewObserver {
    std::optional<std::size_t> rowAtMouse;
    std::optional<std::size_t> rowShown;

    void RowAdded(std::size_t) override {}
    void RowChanged(std::size_t) override {}
    void RowRemoved(std::size_t) override {}
    void RowsCleared() override {}
    void RowsSorted() override {}
    void SelectionChanged() override {}
    void ShowRow(std::size_t nRow) override { rowShown = nRow; }
    std::optional<std::size_t> RowAt(float, float) override { return rowAtMouse; }
};

} // namespace support
