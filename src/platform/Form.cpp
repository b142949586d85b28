// SPDX-License-Identifier: MIT
#include "Form.h"

#include "System.h"

namespace platform {

void Form::TellSize(float width, float height, platform::WindowState state)
{
    m_scaleWidth = width;
    m_scaleHeight = height;
    m_windowState = state;
    if (Resize) {
        Resize();
    }
}

void Form::Show(bool bModal, Form* pOwner)
{
    if (!m_bLoaded) {
        m_bLoaded = true;
        m_pActive = nullptr;
        if (Load) {
            Load();
        }
    }
    Windows().ShowForm(*this, bModal, pOwner);
}

void Form::Refresh()
{
    Windows().RefreshForm(*this);
}

void Form::UnloadForm()
{
    if (!m_bLoaded) {
        return;
    }
    m_bLoaded = false;
    if (Unload) {
        Unload();
    }
    Windows().TakeDownForm(*this);
}

bool Form::SetFocus(Control& control)
{
    if (!Enabled()) {
        return false;
    }
    Change(m_pActive, &control);
    return true;
}

} // namespace platform
