// SPDX-License-Identifier: MIT
#pragma once

namespace platform {

/// The mouse pointers that the program uses.
enum class MousePointer { Default = 0, Hourglass = 11 };

/// Properties of the whole screen.
class Screen
{
public:
    virtual ~Screen() = default;
    virtual void SetMousePointer(MousePointer pointer) = 0;

    /// The width of the screen in twips; 0 if there is none.
    virtual float Width() { return 0; }

    /// The size of a logical pixel in twips.
    virtual float TwipsPerPixelX() { return 15; }
    virtual float TwipsPerPixelY() { return 15; }
};

} // namespace platform
