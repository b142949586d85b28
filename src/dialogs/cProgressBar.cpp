// SPDX-License-Identifier: MIT
#include "cProgressBar.h"

#include "Widgets.h"
#include "WindowFunctions.h"

#include <cmath>
#include <cstdint>
#include <limits>
#include <stdexcept>

namespace dialogs {
namespace {

/// Returns `number`, or throws if the arithmetic that produced it has overflowed.
float Checked(float number)
{
    if (!std::isfinite(number)) {
        throw std::overflow_error("Overflow");
    }
    return number;
}

/// The nearest integer; ties go to the even one.
std::int32_t Rounded(float number)
{
    const double rounded = std::nearbyint(static_cast<double>(Checked(number)));
    if (rounded < std::numeric_limits<std::int32_t>::min() ||
        rounded > std::numeric_limits<std::int32_t>::max()) {
        throw std::overflow_error("Overflow");
    }
    return static_cast<std::int32_t>(rounded);
}

} // namespace

cProgressBar::~cProgressBar()
{
    platform::DestroyWindow(hWnd);
}

void cProgressBar::SetLeft(float New_Left)
{
    sngLeft = New_Left / PerX();
    if (hWnd != nullptr) {
        UpdateRect();
    }
}

void cProgressBar::SetTop(float New_Top)
{
    sngTop = New_Top / PerY();
    if (hWnd != nullptr) {
        UpdateRect();
    }
}

float cProgressBar::Value() const
{
    return Checked((sngMax - sngMin) * sngPercent / 100);
}

void cProgressBar::SetValue(float New_Value)
{
    // Avoids a division by 0.
    const bool bAsItIs = !(New_Value > 0) || !(sngMax > sngMin);
    sngPercent = bAsItIs ? New_Value : Checked(New_Value / Checked(sngMax - sngMin) * 100);
    UpdatePosition();
}

void cProgressBar::SetVisible(bool New_Visible)
{
    platform::ShowWindow(hWnd, New_Visible ? platform::SW_SHOW : platform::SW_HIDE);
}

void cProgressBar::Create(const platform::WindowHandle& hParent)
{
    platform::InitCommonControls();
    hWnd = platform::CreateWindowExA(platform::NativeProgressBar::kClass, Rounded(sngLeft), Rounded(sngTop),
                                     Rounded(sngWidth), Rounded(sngHeight), hParent);
}

void cProgressBar::UpdatePosition()
{
    platform::SendMessageA(hWnd, platform::NativeProgressBar::PBM_SETPOS, Rounded(sngPercent), 0);
}

void cProgressBar::UpdateRect()
{
    platform::MoveWindow(hWnd, Rounded(sngLeft), Rounded(sngTop), Rounded(sngWidth), Rounded(sngHeight));
}

} // namespace dialogs
