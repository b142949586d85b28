// SPDX-License-Identifier: MIT
#include "ToolkitValues.h"

#include "Widgets.h"

#include <QKeyEvent>

#include <algorithm>
#include <array>
#include <string_view>
#include <utility>

namespace desktop {

int ShiftMask(Qt::KeyboardModifiers modifiers)
{
    return (modifiers.testFlag(Qt::ShiftModifier) ? platform::kShiftHeld : 0) +
           (modifiers.testFlag(Qt::ControlModifier) ? platform::kCtrlHeld : 0) +
           (modifiers.testFlag(Qt::AltModifier) ? platform::kAltHeld : 0);
}

namespace {

/// The Latin letter at a keyboard position, 0 if there is none. Scan codes are numbered as X11 and Wayland
/// do.
int LetterAt(quint32 nScanCode)
{
    constexpr std::array<std::pair<quint32, std::string_view>, 3> kRows = {
        {{24, "QWERTYUIOP"}, {38, "ASDFGHJKL"}, {52, "ZXCVBNM"}}};
    for (const auto& [nFirst, sLetters] : kRows) {
        if (nScanCode >= nFirst && nScanCode < nFirst + sLetters.size()) {
            return sLetters[nScanCode - nFirst];
        }
    }
    return 0;
}

} // namespace

int VirtualKey(const QKeyEvent& event)
{
    constexpr int kLastLatin = 0xFF;
    const int nKey = event.key();
    if (nKey > kLastLatin && nKey < Qt::Key_Escape) {
        return LetterAt(event.nativeScanCode());
    }
    if (nKey >= Qt::Key_A && nKey <= Qt::Key_Z) {
        return nKey;
    }
    constexpr std::array<std::pair<int, int>, 4> kKeys = {
        {{Qt::Key_Shift, 16}, {Qt::Key_Control, 17}, {Qt::Key_Alt, 18}, {Qt::Key_Delete, 46}}};
    const auto* const pFound =
        std::find_if(kKeys.begin(), kKeys.end(), [&](const auto& each) { return each.first == nKey; });
    return pFound == kKeys.end() ? 0 : pFound->second;
}

int ShiftMaskAfter(const QKeyEvent& released)
{
    const auto own = released.key() == Qt::Key_Shift     ? Qt::ShiftModifier
                     : released.key() == Qt::Key_Control ? Qt::ControlModifier
                     : released.key() == Qt::Key_Alt     ? Qt::AltModifier
                                                         : Qt::NoModifier;
    return ShiftMask(released.modifiers() & ~own);
}

int ButtonMask(Qt::MouseButtons buttons)
{
    return (buttons.testFlag(Qt::LeftButton) ? platform::kLeftButton : 0) +
           (buttons.testFlag(Qt::RightButton) ? platform::kRightButton : 0) +
           (buttons.testFlag(Qt::MiddleButton) ? platform::kMiddleButton : 0);
}

Qt::Alignment AlignmentOf(platform::Alignment alignment)
{
    switch (alignment) {
    case platform::Alignment::Right:
        return Qt::AlignRight | Qt::AlignVCenter;
    case platform::Alignment::Center:
        return Qt::AlignCenter;
    case platform::Alignment::Left:
        break;
    }
    return Qt::AlignLeft | Qt::AlignVCenter;
}

} // namespace desktop
