// SPDX-License-Identifier: MIT
#pragma once

#include "Form.h"
#include "ListView.h"
#include "Menu.h"
#include "ScriptedFiles.h"
#include "System.h"

#include <algorithm>

namespace support {

/// All that the windows meet but their event loop, with answers of the test's. Requests are lines of `sLog`,
/// NULs as "0"; what is asked of windows, and what messages say, is in `sWindows`, each behind a "; ".
class ScriptedDesktop final : public platform::NativeWindow, // the folder dialog
                              public platform::ListViewObserver,
                              public platform::Screen,
                              public platform::MessageBoxes,
                              public platform::WindowManager,
                              public platform::ShellDialogs,
                              public platform::ShellFiles,
                              public platform::Launcher,
                              public platform::TextFiles,
                              public platform::Volumes
{
public:
    ScriptedFiles files; ///< what is on the disk
    std::string sLog, sWindows;
    std::function<void()> onMenu = [] {};            ///< what the user does in a pop-up menu
    std::optional<std::size_t> rowAtMouse, rowShown; ///< of the list that is observed

    // The Add Folder window.
    std::function<void()> whileBrowsing = [] {}; ///< runs in the place of the dialog's event loop
    std::map<long, std::string> paths;           ///< of the items of its tree
    platform::tVolumeLabel label;
    platform::BROWSEINFO browseRequest;

    std::string sChosenFolder;                   ///< what the folder dialog comes to; empty for Cancel
    std::string sChosenFile;                     ///< what the save dialog comes to; empty for Cancel
    bool bWaits = true;                          ///< the user waits until the disks have answered
    int nShellResult = 0;                        ///< what each request to the shell comes to
    std::function<void()> duringRequest = [] {}; ///< what happens to the disk meanwhile
    std::map<std::string, long> launchResults;   ///< of what does not start
    std::string sReport;                         ///< all lines written
    int nLinesThatFit = 1000; ///< the disk is full behind them; -1: the file cannot be opened
    platform::OPENFILENAME saveRequest;

    platform::tSystem System() { return {&files, nullptr, this, this, this, this, this, this, this, this}; }

    static std::string Shown(std::string sText)
    {
        std::replace(sText.begin(), sText.end(), '\0', '0');
        return sText;
    }

private:
    using WindowHandle = platform::WindowHandle;

    void ShowRow(std::size_t nRow) override { rowShown = nRow; }
    std::optional<std::size_t> RowAt(float, float) override { return rowAtMouse; }

    void SetMousePointer(platform::MousePointer) override {}
    void Show(std::string_view sText, platform::MessageIcon) override
    {
        sWindows.append("; message ").append(sText);
    }
    void ShowForm(platform::Form& form, bool bModal, platform::Form* pOwner) override
    {
        sWindows += (bModal ? "; modal " : "; show ") + form.design.sCaption + (pOwner ? " owned" : "");
    }
    void TakeDownForm(platform::Form& form) override { sWindows += "; down " + form.design.sCaption; }
    void RefreshForm(platform::Form& form) override { sWindows += "; refresh " + form.design.sCaption; }
    void PopupMenu(platform::MenuItem& menu, const platform::ListView* pList) override
    {
        sWindows += "; menu " + menu.sCaption + (pList ? " at the row" : "");
        onMenu();
    }
    void SetForegroundWindow(WindowHandle) override { sWindows += "; front"; }
    void LockWindowUpdate(WindowHandle hWnd) override { sWindows += hWnd ? "; lock" : "; unlock"; }

    platform::ItemId SHBrowseForFolder(const platform::BROWSEINFO& info) override
    {
        sWindows += "; browse";
        browseRequest = info;
        whileBrowsing();
        return 0;
    }
    bool SHGetPathFromIDList(platform::ItemId pidl, std::string& sBuffer) override
    {
        return paths.contains(pidl) && Fill(sBuffer, paths[pidl]);
    }
    platform::tVolumeLabel VolumeLabel(const std::string&) override { return label; }

    void UseGroups(platform::FileGroups&) override {}
    int SHFileOperationA(const platform::SHFILEOPSTRUCT& request) override
    {
        sLog += "request " + std::to_string(request.wFunc) + " flags " + std::to_string(request.fFlags) +
                (request.hwnd ? " " : " unowned ") + Shown(request.pFrom) + " > " + Shown(request.pTo) + '\n';
        duringRequest();
        return nShellResult;
    }
    bool LookAtEach(WindowHandle, std::size_t nCount, std::function<void(std::size_t)> look) override
    {
        for (std::size_t n = 0; n < nCount; ++n) {
            look(n);
        }
        return bWaits;
    }
    long SHGetFileInfoA(const std::string& sPath, unsigned, unsigned uFlags) override
    {
        return uFlags == platform::SHGFI_DISPLAYNAME && files.PathFound(sPath) ? 1 : 0;
    }

    long ShellExecuteA(WindowHandle hwnd, const std::string& sVerb, const std::string& sFile,
                       const std::string& sParameters, const std::string& sDirectory, int nShowCmd) override
    {
        sLog += sVerb + (hwnd ? " owned " : " ") + std::to_string(nShowCmd) + " [" + sFile + "] [" +
                sParameters + "] [" + sDirectory + "]\n";
        return launchResults.contains(sFile) ? launchResults[sFile] : 33;
    }
    bool ShellExecuteExA(const platform::SHELLEXECUTEINFO& info) override
    {
        sLog += info.lpVerb + (info.hwnd ? " owned " : " ") + std::to_string(info.fMask) + " [" +
                info.lpFile + "]\n";
        return false;
    }

    platform::ItemId SHBrowseForFolderA(const platform::BROWSEINFO& info) override
    {
        sLog += "browse " + info.lpszTitle + (info.hwndOwner ? "\n" : " unowned\n");
        if (info.lpfn != nullptr) {
            EXPECT_EQ(info.lpfn(this, platform::BFFM_INITIALIZED, 0, info.lParam), 0);
            EXPECT_EQ(info.lpfn(this, platform::BFFM_SELCHANGED, 7, info.lParam), 0);
        }
        return sChosenFolder.empty() ? 0 : 7;
    }
    long TextMessage(unsigned nMessage, long wParam, const std::string& sText) override
    {
        sLog += std::to_string(nMessage) + " " + std::to_string(wParam) + " " + Shown(sText) + '\n';
        return 0;
    }
    bool SHGetPathFromIDListA(platform::ItemId pidl, std::string& sBuffer) override
    {
        return pidl != 0 && Fill(sBuffer, sChosenFolder);
    }
    void CoTaskMemFree(platform::ItemId pidl) override { sLog += "free " + std::to_string(pidl) + '\n'; }
    bool GetSaveFileNameA(platform::OPENFILENAME& request) override
    {
        saveRequest = request;
        return !sChosenFile.empty() && Fill(request.lpstrFile, sChosenFile);
    }
    static bool Fill(std::string& sBuffer, const std::string& sPath)
    {
        sBuffer.replace(0, sPath.size() + 1, sPath + '\0');
        return true;
    }

    platform::FileHandle OpenForOutput(const std::string& sPath) override
    {
        sLog += "write " + sPath + '\n';
        return nLinesThatFit < 0 ? platform::INVALID_HANDLE_VALUE : 5;
    }
    bool PrintLine(platform::FileHandle hFile, std::string_view sLine) override
    {
        EXPECT_EQ(hFile, 5);
        if (nLinesThatFit-- > 0) {
            sReport.append(sLine).append("\n");
        }
        return nLinesThatFit >= 0;
    }
    bool CloseOutput(platform::FileHandle hFile) override
    {
        EXPECT_EQ(hFile, 5);
        sLog += "close\n";
        return true;
    }

    std::string FileSystemOf(const std::string& sFolder) override
    {
        return sFolder.starts_with("/media/disk/") ? "8:17" : "8:1";
    }
};

} // namespace support
