#pragma once

#include "Form.h"
#include "Menu.h"
#include "ScriptedFiles.h"
#include "System.h"

#include <algorithm>
#include <functional>
#include <map>
#include <string>
#include <vector>

namespace support {

/// All that the windows meet but their event loop, with answers of the test's. Each request is noted in
/// `log`, NULs as "0"; what is asked of windows, and what messages say, in `sWindows`, behind a "; " each.
class ScriptedDesktop final : public platform::Screen,
                              public platform::MessageBoxes,
                              public platform::WindowManager,
                              public platform::ShellDialogs,
                              public platform::ShellFiles,
                              public platform::Launcher,
                              public platform::FileDialogs,
                              public platform::TextFiles,
                              public platform::Volumes
{
public:
    ScriptedFiles files; ///< what is on the disk
    std::vector<std::string> log;
    std::string sWindows;

    // The Add Folder window.
    std::function<void()> whileBrowsing = [] {}; ///< runs in the place of the dialog's event loop
    std::map<long, std::string> paths;           ///< of the items of its tree
    platform::tVolumeLabel label;
    platform::BROWSEINFO browseRequest;

    std::string sChosenFolder;           ///< what the folder dialog comes to; empty for Cancel
    std::string sChosenFile;             ///< what the save dialog comes to; empty for Cancel
    int nShellResult = 0;                ///< what each request to the shell comes to
    std::function<void()> duringRequest; ///< what happens to the disk meanwhile
    std::map<std::string, long> launchResults;
    std::string sReport;      ///< all lines written
    int nLinesThatFit = 1000; ///< the disk is full behind them; -1: the file cannot be opened
    platform::OPENFILENAME saveRequest;

    platform::tSystem System()
    {
        return {&files, nullptr, this, this, this, this, this, this, this, this, this};
    }

    static std::string Shown(std::string sText)
    {
        std::replace(sText.begin(), sText.end(), '\0', '0');
        return sText;
    }

    void SetMousePointer(platform::MousePointer /*pointer*/) override {}
    void Show(std::string_view sText, platform::MessageIcon /*icon*/) override
    {
        Note("message " + std::string(sText));
    }
    void ShowForm(platform::Form& form, bool bModal, platform::Form* pOwner) override
    {
        Note((bModal ? "modal " : "show ") + form.design.sCaption + (pOwner != nullptr ? " owned" : ""));
    }
    void TakeDownForm(platform::Form& form) override { Note("down " + form.design.sCaption); }
    void RefreshForm(platform::Form& form) override { Note("refresh " + form.design.sCaption); }
    void PopupMenu(platform::MenuItem& menu, const platform::ListView* pList) override
    {
        Note("menu " + menu.sCaption + (pList != nullptr ? " at the row" : ""));
    }
    void SetForegroundWindow(platform::WindowHandle /*hWnd*/) override { Note("front"); }
    void LockWindowUpdate(platform::WindowHandle hWnd) override { Note(hWnd != nullptr ? "lock" : "unlock"); }

    platform::ItemId SHBrowseForFolder(const platform::BROWSEINFO& info) override
    {
        Note("browse");
        browseRequest = info;
        whileBrowsing();
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
    platform::tVolumeLabel VolumeLabel(const std::string& /*sFolder*/) override { return label; }

    int SHFileOperationA(const platform::SHFILEOPSTRUCT& request) override
    {
        log.push_back("request " + std::to_string(request.wFunc) + " flags " +
                      std::to_string(request.fFlags) + (request.hwnd != nullptr ? " " : " unowned ") +
                      Shown(request.pFrom) + " > " + Shown(request.pTo));
        if (duringRequest) {
            duringRequest();
        }
        return nShellResult;
    }
    long SHGetFileInfoA(const std::string& sPath, unsigned /*dwFileAttributes*/, unsigned uFlags) override
    {
        return uFlags == platform::SHGFI_DISPLAYNAME && files.PathFound(sPath) ? 1 : 0;
    }

    long ShellExecuteA(platform::WindowHandle hwnd, const std::string& sVerb, const std::string& sFile,
                       const std::string& sParameters, const std::string& sDirectory, int nShowCmd) override
    {
        log.push_back(sVerb + (hwnd != nullptr ? " owned " : " ") + std::to_string(nShowCmd) + " [" + sFile +
                      "] [" + sParameters + "] [" + sDirectory + "]");
        const auto result = launchResults.find(sFile);
        return result == launchResults.end() ? 33 : result->second;
    }
    bool ShellExecuteExA(const platform::SHELLEXECUTEINFO& info) override
    {
        log.push_back(info.lpVerb + (info.hwnd != nullptr ? " owned " : " ") + std::to_string(info.fMask) +
                      " [" + info.lpFile + "]");
        return false;
    }

    platform::ItemId SHBrowseForFolderA(const platform::BROWSEINFO& info) override
    {
        log.push_back("browse " + info.lpszTitle + (info.hwndOwner != nullptr ? "" : " unowned"));
        if (info.lpfn != nullptr) {
            Dialog dialog(log);
            EXPECT_EQ(info.lpfn(&dialog, platform::BFFM_INITIALIZED, 0, info.lParam), 0);
            EXPECT_EQ(info.lpfn(&dialog, platform::BFFM_SELCHANGED, 7, info.lParam), 0);
        }
        return sChosenFolder.empty() ? 0 : 7;
    }
    bool SHGetPathFromIDListA(platform::ItemId pidl, std::string& sBuffer) override
    {
        if (pidl == 0) {
            return false;
        }
        sBuffer.replace(0, sChosenFolder.size() + 1, sChosenFolder + '\0');
        return true;
    }
    void CoTaskMemFree(platform::ItemId pidl) override { log.push_back("free " + std::to_string(pidl)); }

    bool GetSaveFileNameA(platform::OPENFILENAME& request) override
    {
        saveRequest = request;
        request.lpstrFile.replace(0, sChosenFile.size() + 1, sChosenFile + '\0');
        return !sChosenFile.empty();
    }

    platform::FileHandle OpenForOutput(const std::string& sPath) override
    {
        log.push_back("write " + sPath);
        return nLinesThatFit < 0 ? platform::INVALID_HANDLE_VALUE : 5;
    }
    bool PrintLine(platform::FileHandle hFile, std::string_view sLine) override
    {
        EXPECT_EQ(hFile, 5);
        if (nLinesThatFit-- <= 0) {
            return false;
        }
        sReport.append(sLine).append("\n");
        return true;
    }
    bool CloseOutput(platform::FileHandle hFile) override
    {
        EXPECT_EQ(hFile, 5);
        log.emplace_back("close");
        return true;
    }

    std::string FileSystemOf(const std::string& sFolder) override
    {
        return sFolder.starts_with("/media/disk/") ? "8:17" : "8:1";
    }

private:
    void Note(const std::string& sWhat) { sWindows += "; " + sWhat; }

    struct Dialog final : platform::Control {
        explicit Dialog(std::vector<std::string>& New_log) : sLog(New_log) {}
        long TextMessage(unsigned nMessage, long wParam, const std::string& sText) override
        {
            sLog.push_back(std::to_string(nMessage) + " " + std::to_string(wParam) + " " + Shown(sText));
            return 0;
        }
        std::vector<std::string>& sLog;
    };
};

} // namespace support
