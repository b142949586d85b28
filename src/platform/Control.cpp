// SPDX-License-Identifier: MIT
#include "Control.h"

#include <algorithm>

namespace platform {

bool Control::SetSize(float& member, float New_Size)
{
    if (New_Size < 0) {
        return false;
    }
    Change(member, New_Size);
    return true;
}

void Control::SetPlace(const tPlace& New_Place)
{
    m_place = New_Place;
    Changed();
}

void Control::SetParent(Control* pParent)
{
    Control* const pBefore = m_pParent;
    if (m_pParent != nullptr) {
        auto& siblings = m_pParent->m_children;
        siblings.erase(std::remove(siblings.begin(), siblings.end(), this), siblings.end());
    }
    m_pParent = pParent;
    if (m_pParent != nullptr) {
        m_pParent->m_children.push_back(this);
    }
    for (Control* pTold : {pBefore, m_pParent, this}) {
        if (pTold != nullptr) {
            pTold->Changed();
        }
    }
}

long Control::Message(unsigned /*nMessage*/, long /*wParam*/, long /*lParam*/)
{
    return 0;
}

long Control::TextMessage(unsigned /*nMessage*/, long /*wParam*/, const std::string& /*sText*/)
{
    return 0;
}

long Control::OwnProcedure(WindowHandle hWnd, unsigned uMsg, long wParam, long lParam)
{
    return hWnd->Message(uMsg, wParam, lParam);
}

} // namespace platform
