#pragma once

#include "MainForm.h"
#include "ScriptedFiles.h"
#include "System.h"

#include <functional>
#include <gtest/gtest.h>
#include <map>
#include <memory>
#include <string>
#include <vector>

namespace support {

/// A window of a class, that tells of the messages which reach it.
class ScriptedWindow final : public platform::Control
{
public:
    ScriptedWindow(std::string sClass, std::vector<std::string>& log)
        : m_sClass(std::move(sClass)), m_log(log)
    {
    }
    [[nodiscard]] std::string_view ClassName() const override { return m_sClass; }
    long Message(unsigned nMessage, long wParam, long /*lParam*/) override
    {
        m_log.push_back(m_sClass + " " + std::to_string(nMessage) + " " + std::to_string(wParam) +
                        (Visible() ? "" : " hidden"));
        return 0;
    }
    long TextMessage(unsigned nMessage, long wParam, const std::string& sText) override
    {
        m_log.push_back(m_sClass + " " + std::to_string(nMessage) + " " + std::to_string(wParam) + " \"" +
                        sText.c_str() + "\"");
        return 0;
    }

private:
    std::string m_sClass;
    std::vector<std::string>& m_log;
};

/// The main form, the screen, the windows and the shell around a dialog, without a display.
class ScriptedShell final : public dialogs::MainFormMembers,
                            public platform::ShellDialogs,
                            private platform::WindowManager,
                            private platform::Screen,
                            private platform::MessageBoxes,
                            private platform::ControlObserver
{
public:
    ScriptedShell()
    {
        UseShell(*this);
        dialogs::UseMainForm(*this);
        form.Observe(this);
    }
    void UseShell(platform::ShellDialogs& shell, platform::FileSystem* pFiles = nullptr)
    {
        platform::UseSystem({pFiles != nullptr ? pFiles : &files, nullptr, this, this, this, &shell});
    }

    ScriptedFiles files;
    std::vector<std::string> log; ///< what windows, screen and messages saw, in order
    float perPixel = 15;

    // The folder dialog.
    std::vector<std::string> classes = {"Static", "SysTreeView32", "SysTreeView3", "systreeview32"};
    std::map<long, std::string> paths; ///< what is written into the buffer for an item
    std::function<void()> whileOpen;   ///< runs in the place of the dialog's event loop
    std::string sLabel, sLabelError;
    platform::BROWSEINFO info;
    ScriptedWindow* pDialog = nullptr;

    void Select(long item) { info.lpfn(pDialog, platform::BFFM_SELCHANGED, item, info.lParam); }

    platform::ItemId SHBrowseForFolder(const platform::BROWSEINFO& New_info) override
    {
        info = New_info;
        ScriptedWindow dialog("dialog", log);
        std::vector<std::unique_ptr<ScriptedWindow>> children;
        for (const std::string& sClass : classes) {
            children.push_back(std::make_unique<ScriptedWindow>(sClass, log));
            children.back()->SetParent(&dialog);
        }
        pDialog = &dialog;
        info.lpfn(&dialog, platform::BFFM_INITIALIZED, 0, info.lParam);
        for (const int x : {100, 200}) {
            platform::MoveWindow(&dialog, x, 100, 300, 300);
        }
        whileOpen();
        for (const auto& child : children) {
            EXPECT_EQ(child->Parent(), &dialog) << child->ClassName() << " did not come back";
        }
        return 0;
    }
    bool SHGetPathFromIDList(platform::ItemId pidl, std::string& sBuffer) override
    {
        const auto path = paths.find(pidl);
        if (path == paths.end()) {
            return false;
        }
        sBuffer.replace(0, path->second.size() + 1, path->second + '\0');
        return true;
    }
    platform::tVolumeLabel VolumeLabel(const std::string& /*sFolder*/) override
    {
        return {sLabel, sLabelError};
    }

private:
    void CheckMenu() override {}
    std::string sSelectedFolder() override { return {}; }

    void ShowForm(platform::Form& shown, bool /*bModal*/, platform::Form* pOwner) override
    {
        log.push_back("show " + shown.design.sCaption + (pOwner == &form ? " on main" : ""));
    }
    void TakeDownForm(platform::Form& shown) override { log.push_back("down " + shown.design.sCaption); }
    void RefreshForm(platform::Form& /*form*/) override {}
    void PopupMenu(platform::MenuItem& /*menu*/, const platform::ListView* /*pList*/) override {}
    void SetForegroundWindow(platform::WindowHandle hWnd) override
    {
        log.emplace_back(hWnd == &form ? "front main" : "front");
    }
    void LockWindowUpdate(platform::WindowHandle /*hWnd*/) override {}

    void SetMousePointer(platform::MousePointer pointer) override
    {
        log.push_back("pointer " + std::to_string(static_cast<int>(pointer)));
    }
    float Width() override { return 19200; }
    float TwipsPerPixelX() override { return perPixel; }
    float TwipsPerPixelY() override { return perPixel; }

    void Show(std::string_view sText, platform::MessageIcon icon) override
    {
        log.push_back(std::to_string(static_cast<int>(icon)) + " " + std::string(sText));
    }
    void ControlChanged(platform::Control& /*control*/) override
    {
        log.emplace_back(form.Enabled() ? "enabled" : "disabled");
    }
};

} // namespace support
