// SPDX-License-Identifier: MIT
#pragma once

#include "Control.h"
#include "FormMembers.h"

namespace dialogs {

/// A progress bar put on a form at run time. It keeps its rectangle in pixels and speaks twips, and turns the
/// caller's value into a percentage, so that the window's own range of 0 to 100 is never set.
///
/// The rectangle is set first, then the window created, then range and value set. Numbers that do not go into
/// 32 bits raise std::overflow_error.
class cProgressBar final : public search::ProgressBarMembers
{
public:
    cProgressBar() = default;
    cProgressBar(const cProgressBar&) = delete;
    cProgressBar& operator=(const cProgressBar&) = delete;
    ~cProgressBar() override;

    /// In twips. The window moves when `Left` or `Top` is set, and takes `Width` and `Height` along then.
    [[nodiscard]] float Left() const;
    void SetLeft(float New_Left);
    [[nodiscard]] float Top() const;
    void SetTop(float New_Top);
    [[nodiscard]] float Width() const;
    void SetWidth(float New_Width);
    [[nodiscard]] float Height() const;
    void SetHeight(float New_Height);

    /// The bar follows a change of the range when the next value is set.
    [[nodiscard]] float Min() const { return sngMin; }
    void SetMin(float New_Min) { sngMin = New_Min; }
    [[nodiscard]] float Max() const { return sngMax; }
    void SetMax(float New_Max) override { sngMax = New_Max; }

    /// Measured from 0, whatever `Min` is. One set while the range is empty, or not above 0, stands for a
    /// percentage as it is.
    [[nodiscard]] float Value() const;
    void SetValue(float New_Value) override;

    void SetVisible(bool New_Visible);

    /// Creates the window, at position 0, inside `hParent`.
    void Create(const platform::WindowHandle& hParent);

private:
    void UpdatePosition();
    void UpdateRect();

    platform::WindowHandle hWnd = nullptr; ///< owned
    float sngLeft = 10;
    float sngTop = 10;
    float sngWidth = 100;
    float sngHeight = 20;
    float sngMin = 0;
    float sngMax = 100;
    float sngPercent = 0;
};

} // namespace dialogs
