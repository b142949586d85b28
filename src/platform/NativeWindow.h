// SPDX-License-Identifier: MIT
#pragma once

#include "Control.h"

#include <string>
#include <string_view>
#include <vector>

namespace platform {

class NativeWindow;

/// A window as the native API names it: the object behind it, or null.
using WindowHandle = NativeWindow*;

/// Handles the messages sent to a window.
using WindowProcedure = long (*)(WindowHandle hWnd, unsigned uMsg, long wParam, long lParam);

/// A control with a handle, so that the functions on handles (WindowFunctions.h) can find it, move it into
/// another window and send it messages.
class NativeWindow : public Control
{
public:
    /// The handle of the control for the window functions.
    WindowHandle hWnd() { return this; }

    /// The window class of the control, as the window functions know it; empty if it is never looked up.
    [[nodiscard]] virtual std::string_view ClassName() const { return {}; }

    /// The window that contains this one, or null; and the windows it contains, in the order in which they
    /// were added.
    [[nodiscard]] NativeWindow* Parent() const { return m_pParent; }
    [[nodiscard]] const std::vector<NativeWindow*>& Children() const { return m_children; }

    /// Moves the window into `pParent`, or out of its parent with null. Neither owns the other; a window that
    /// is destroyed detaches itself first.
    void SetParent(NativeWindow* pParent);

    /// Handles a window message. Returns 0 for a message that the window does not know.
    virtual long Message(unsigned /*nMessage*/, long /*wParam*/, long /*lParam*/) { return 0; }

    /// The same for a message with a text.
    virtual long TextMessage(unsigned /*nMessage*/, long /*wParam*/, const std::string& /*sText*/)
    {
        return 0;
    }

    /// The procedure that gets the messages for this window: `Message` by default, or the one that the
    /// program has installed in its place.
    [[nodiscard]] WindowProcedure Procedure() const { return m_procedure; }
    void SetProcedure(WindowProcedure New_Procedure) { m_procedure = New_Procedure; }

private:
    static long OwnProcedure(WindowHandle hWnd, unsigned uMsg, long wParam, long lParam)
    {
        return hWnd->Message(uMsg, wParam, lParam);
    }

    NativeWindow* m_pParent = nullptr;
    std::vector<NativeWindow*> m_children;
    WindowProcedure m_procedure = &OwnProcedure;
};

} // namespace platform
