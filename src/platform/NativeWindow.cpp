// SPDX-License-Identifier: MIT
#include "NativeWindow.h"

namespace platform {

void NativeWindow::SetParent(NativeWindow* pParent)
{
    NativeWindow* const pBefore = m_pParent;
    if (m_pParent != nullptr) {
        std::erase(m_pParent->m_children, this);
    }
    m_pParent = pParent;
    if (m_pParent != nullptr) {
        m_pParent->m_children.push_back(this);
    }
    for (NativeWindow* pConcerned : {pBefore, m_pParent, this}) {
        if (pConcerned != nullptr) {
            pConcerned->Changed();
        }
    }
}

} // namespace platform
