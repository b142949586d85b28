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
    System().windows->ShowForm(*this, bModal, pOwner);
}

void Form::Refresh()
{
    System().windows->RefreshForm(*this);
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
    System().windows->TakeDownForm(*this);
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
