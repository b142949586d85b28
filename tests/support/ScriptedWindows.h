#pragma once

#include "Form.h"
#include "Menu.h"
#include "WindowManager.h"

#include <functional>
#include <string>

namespace support {

/// Windows that nobody sees: what is asked of them is noted.
class ScriptedWindows final : public platform::WindowManager
{
public:
    std::string sLog; ///< each request behind a "; ", unless somebody else takes the notes

    std::function<void(const std::string&)> note = [this](const std::string& sWhat) { sLog += "; " + sWhat; };

    void ShowForm(platform::Form& form, bool bModal, platform::Form* pOwner) override
    {
        note((bModal ? "modal " : "show ") + form.design.sCaption + (pOwner != nullptr ? " owned" : ""));
    }
    void TakeDownForm(platform::Form& form) override { note("down " + form.design.sCaption); }
    void RefreshForm(platform::Form& form) override { note("refresh " + form.design.sCaption); }
    void PopupMenu(platform::MenuItem& menu, const platform::ListView* pList) override
    {
        note("menu " + menu.sCaption + (pList != nullptr ? " at the row" : ""));
    }
    void SetForegroundWindow(platform::WindowHandle /*hWnd*/) override { note("front"); }
    void LockWindowUpdate(platform::WindowHandle hWnd) override { note(hWnd != nullptr ? "lock" : "unlock"); }
};

} // namespace support
