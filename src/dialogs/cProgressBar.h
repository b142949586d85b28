// SPDX-License-Identifier: MIT
#pragma once

#include "FormMembers.h"
#include "NativeWindow.h"
#include "System.h"

namespace dialogs {

/// A progress bar that is created on a form at run time. It keeps its rectangle in pixels, has an interface
/// in twips, and converts the value to a percentage, so that the native range of 0 to 100 is never changed.
///
/// First set the rectangle, then create the window, then set range and value. Numbers that do not fit in 32
/// bits throw std::overflow_error.
class cProgressBar final : public search::ProgressBarMembers
{
public:
    cProgressBar() = default;
    cProgressBar(const cProgressBar&) = delete;
    cProgressBar& operator=(const cProgressBar&) = delete;
    ~cProgressBar() override;

    /// In twips. The window moves only when `Left` or `Top` is set; this also applies the current `Width` and
    /// `Height`.
    [[nodiscard]] float Left() const { return sngLeft * PerX(); }
    void SetLeft(float New_Left);
    [[nodiscard]] float Top() const { return sngTop * PerY(); }
    void SetTop(float New_Top);
    [[nodiscard]] float Width() const { return sngWidth * PerX(); }
    void SetWidth(float New_Width) { sngWidth = New_Width / PerX(); }
    [[nodiscard]] float Height() const { return sngHeight * PerY(); }
    void SetHeight(float New_Height) { sngHeight = New_Height / PerY(); }

    /// A change of the range takes effect when the next value is set.
    [[nodiscard]] float Min() const { return sngMin; }
    void SetMin(float New_Min) { sngMin = New_Min; }
    [[nodiscard]] float Max() const { return sngMax; }
    void SetMax(float New_Max) override { sngMax = New_Max; }

    /// Counted from 0, whatever `Min` is. While the range is empty, or if the value is not above 0, it is
    /// used as a percentage directly.
    [[nodiscard]] float Value() const;
    void SetValue(float New_Value) override;

    void SetVisible(bool New_Visible);

    /// Creates the window inside `hParent`, at position 0.
    void Create(const platform::WindowHandle& hParent);

private:
    static float PerX() { return platform::System().screen->TwipsPerPixelX(); }
    static float PerY() { return platform::System().screen->TwipsPerPixelY(); }
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
