// SPDX-License-Identifier: MIT
#include "mSysTree.h"

#include "System.h"
#include "WindowFunctions.h"
#include "frmBrowse.h"

namespace dialogs {

std::string sSelectedFolder;
platform::PictureBox* oHost = nullptr;

namespace {

constexpr std::size_t kMaxPath = 260;
constexpr int kBrowseSize = 480; // pixels

platform::WindowProcedure lpPrevWndProc = nullptr;
platform::WindowHandle hBrowse = nullptr;
platform::WindowHandle hTree = nullptr;

void UnhookBrowse()
{
    platform::SetWindowLongA(hBrowse, platform::GWL_WNDPROC, lpPrevWndProc);
}

void HideBrowse()
{
    platform::ShowWindow(hBrowse, platform::SW_HIDE);
    UnhookBrowse();
}

/// The dialog's window procedure until it is moved for the first time. The shell moves it into position after
/// the callback has returned; from then on it has to be hidden.
long BrowseWndProc(platform::WindowHandle hWnd, unsigned uMsg, long wParam, long lParam)
{
    if (uMsg == platform::WM_MOVE) {
        HideBrowse();
    }
    return platform::CallWindowProcA(lpPrevWndProc, hWnd, uMsg, wParam, lParam);
}

void HookBrowse()
{
    lpPrevWndProc = platform::SetWindowLongA(hBrowse, platform::GWL_WNDPROC, &BrowseWndProc);
}

void HostTree(platform::PictureBox& host)
{
    platform::SetParent(hTree, host.hWnd());
    platform::MoveWindow(hTree, 0, 0, host.ScaleWidth(), host.ScaleHeight());
    HookBrowse();
}

void BrowseInitialized()
{
    // Off the screen at any resolution.
    platform::MoveWindow(hBrowse, -static_cast<int>(platform::System().screen->Width()), 0, kBrowseSize,
                         kBrowseSize);
    platform::SendMessageA(hBrowse, platform::BFFM_SETSELECTIONA, 1, sSelectedFolder);
    for (auto hChild = platform::GetWindow(hBrowse, platform::GW_CHILD); hChild != nullptr;
         hChild = platform::GetWindow(hChild, platform::GW_HWNDNEXT)) {
        constexpr std::size_t nBuffer = platform::ShellDialogs::kTreeClass.size() + 1;
        if (platform::GetClassNameA(hChild, nBuffer) == platform::ShellDialogs::kTreeClass) {
            hTree = hChild;
        }
    }
    HostTree(*oHost);
}

void SelectionChanged(platform::ItemId pidl)
{
    // If the item has no path, the buffer holds no NUL and the last folder stays.
    std::string sBuffer(kMaxPath, ' ');
    platform::System().dialogs->SHGetPathFromIDList(pidl, sBuffer);
    const std::size_t nEnd = sBuffer.find('\0');
    if (nEnd != std::string::npos) {
        sSelectedFolder = sBuffer.substr(0, nEnd);
    }
    // Only a folder can be added.
    theBrowseForm().cmdAdd.SetEnabled(!sSelectedFolder.empty());
}

int SysTreeCallback(platform::WindowHandle hWnd, unsigned uMsg, long lParam, long /*lpData*/)
{
    hBrowse = hWnd;
    if (uMsg == platform::BFFM_INITIALIZED) {
        BrowseInitialized();
    } else if (uMsg == platform::BFFM_SELCHANGED) {
        SelectionChanged(lParam);
    }
    return 0;
}

} // namespace

void ShowSysTree(const std::string& sStart)
{
    // The shell expects a terminating NUL.
    sSelectedFolder = sStart + '\0';
    // The result is ignored: the folders have been added during the call.
    platform::System().dialogs->SHBrowseForFolder(
        {.hwndOwner = platform::GetDesktopWindow(),
         .lpszTitle = {},
         .ulFlags = platform::BIF_RETURNONLYFSDIRS | platform::BIF_STATUSTEXT,
         .lpfn = &SysTreeCallback,
         .lParam = 0});
    // The windows have been destroyed, so these handles must not be used any more.
    hBrowse = nullptr;
    hTree = nullptr;
}

void CloseSysTree()
{
    platform::SetParent(hTree, hBrowse);
    platform::SendMessageA(hBrowse, platform::WM_CLOSE, 1, 0);
    platform::DestroyWindow(hBrowse);
}

} // namespace dialogs
