// SPDX-License-Identifier: MIT
#pragma once

namespace platform {

/// The shapes of the mouse pointer that the program asks for.
enum class MousePointer { Default = 0, Hourglass = 11 };

/// What concerns all windows at once.
class Screen
{
public:
    virtual ~Screen() = default;
    virtual void SetMousePointer(MousePointer pointer) = 0;

    /// How wide the screen is, in twips; 0 where there is none.
    virtual float Width() { return 0; }

    /// How many twips a logical pixel is wide and high.
    virtual float TwipsPerPixelX() { return 15; }
    virtual float TwipsPerPixelY() { return 15; }
};

} // namespace platform
