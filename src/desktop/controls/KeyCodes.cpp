#include "KeyCodes.h"

#include "Widgets.h"

#include <QKeyEvent>

#include <algorithm>
#include <array>
#include <utility>

namespace desktop {

int ShiftMask(Qt::KeyboardModifiers modifiers)
{
    return (modifiers.testFlag(Qt::ShiftModifier) ? platform::kShiftHeld : 0) +
           (modifiers.testFlag(Qt::ControlModifier) ? platform::kCtrlHeld : 0) +
           (modifiers.testFlag(Qt::AltModifier) ? platform::kAltHeld : 0);
}

int VirtualKey(int nKey)
{
    if ((nKey >= Qt::Key_A && nKey <= Qt::Key_Z) || (nKey >= Qt::Key_0 && nKey <= Qt::Key_9) ||
        nKey == Qt::Key_Space) {
        return nKey;
    }
    if (nKey >= Qt::Key_F1 && nKey <= Qt::Key_F24) {
        return nKey - Qt::Key_F1 + 112;
    }
    constexpr std::array<std::pair<int, int>, 17> kKeys = {{
        {Qt::Key_Backspace, 8},
        {Qt::Key_Tab, 9},
        {Qt::Key_Return, 13},
        {Qt::Key_Enter, 13},
        {Qt::Key_Shift, 16},
        {Qt::Key_Control, 17},
        {Qt::Key_Alt, 18},
        {Qt::Key_Escape, 27},
        {Qt::Key_PageUp, 33},
        {Qt::Key_PageDown, 34},
        {Qt::Key_End, 35},
        {Qt::Key_Home, 36},
        {Qt::Key_Left, 37},
        {Qt::Key_Up, 38},
        {Qt::Key_Right, 39},
        {Qt::Key_Down, 40},
        {Qt::Key_Delete, 46},
    }};
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

} // namespace desktop
