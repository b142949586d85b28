#pragma once

#include "Form.h"
#include "Menu.h"
#include "WindowManager.h"

#include <string>

namespace support {

/// Windows that nobody sees: what is asked of them is noted, each request behind a "; ".
class ScriptedWindows final : public platform::WindowManager
{
public:
    std::string sLog;

    void ShowForm(platform::Form& form, bool bModal, platform::Form* pOwner) override
    {
        sLog +=
            (bModal ? "; modal " : "; show ") + form.design.sCaption + (pOwner != nullptr ? " owned" : "");
    }
    void TakeDownForm(platform::Form& form) override { sLog += "; down " + form.design.sCaption; }
    void RefreshForm(platform::Form& form) override { sLog += "; refresh " + form.design.sCaption; }
    void PopupMenu(platform::MenuItem& menu, const platform::ListView* pList) override
    {
        sLog += "; menu " + menu.sCaption + (pList != nullptr ? " at the row" : "");
    }
    void SetForegroundWindow(platform::WindowHandle /*hWnd*/) override { sLog += "; front"; }
    void LockWindowUpdate(platform::WindowHandle hWnd) override
    {
        sLog += hWnd != nullptr ? "; lock" : "; unlock";
    }
};

} // namespace support
