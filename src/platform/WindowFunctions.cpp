// SPDX-License-Identifier: MIT
#include "WindowFunctions.h"

#include "System.h"
#include "Widgets.h"

#include <algorithm>
#include <memory>
#include <vector>

namespace platform {
namespace {

/// The windows made by CreateWindowExA and not destroyed yet.
std::vector<std::unique_ptr<NativeProgressBar>>& Created()
{
    static std::vector<std::unique_ptr<NativeProgressBar>> windows;
    return windows;
}

} // namespace

void InitCommonControls() {}

WindowHandle FindWindowExA(WindowHandle hParent, WindowHandle hChildAfter, std::string_view sClass)
{
    WindowHandle hChild =
        hChildAfter != nullptr ? GetWindow(hChildAfter, GW_HWNDNEXT) : GetWindow(hParent, GW_CHILD);
    while (hChild != nullptr && (hChild->ClassName() != sClass || hChild->Parent() != hParent)) {
        hChild = GetWindow(hChild, GW_HWNDNEXT);
    }
    return hChild;
}

long SendMessageA(WindowHandle hWnd, unsigned nMessage, long wParam, long lParam)
{
    return hWnd == nullptr ? 0 : hWnd->Procedure()(hWnd, nMessage, wParam, lParam);
}

long SendMessageA(WindowHandle hWnd, unsigned nMessage, long wParam, const std::string& sText)
{
    return hWnd == nullptr ? 0 : hWnd->TextMessage(nMessage, wParam, sText);
}

WindowProcedure SetWindowLongA(WindowHandle hWnd, int nIndex, WindowProcedure New_Procedure)
{
    if (hWnd == nullptr || nIndex != GWL_WNDPROC) {
        return nullptr;
    }
    const WindowProcedure before = hWnd->Procedure();
    hWnd->SetProcedure(New_Procedure);
    return before;
}

long CallWindowProcA(WindowProcedure lpPrevWndFunc, WindowHandle hWnd, unsigned uMsg, long wParam,
                     long lParam)
{
    return lpPrevWndFunc == nullptr ? 0 : lpPrevWndFunc(hWnd, uMsg, wParam, lParam);
}

WindowHandle GetWindow(WindowHandle hWnd, unsigned uCmd)
{
    if (hWnd == nullptr) {
        return nullptr;
    }
    if (uCmd == GW_CHILD) {
        return hWnd->Children().empty() ? nullptr : hWnd->Children().front();
    }
    if (uCmd != GW_HWNDNEXT || hWnd->Parent() == nullptr) {
        return nullptr;
    }
    const auto& siblings = hWnd->Parent()->Children();
    const auto next = std::find(siblings.begin(), siblings.end(), hWnd) + 1;
    return next == siblings.end() ? nullptr : *next;
}

std::string GetClassNameA(WindowHandle hWnd, std::size_t nMaxCount)
{
    return hWnd == nullptr ? std::string() : std::string(hWnd->ClassName().substr(0, nMaxCount - 1));
}

void SetParent(WindowHandle hWndChild, WindowHandle hWndNewParent)
{
    if (hWndChild != nullptr) {
        hWndChild->SetParent(hWndNewParent);
    }
}

WindowHandle GetDesktopWindow()
{
    static NativeWindow desktop;
    return &desktop;
}

WindowHandle CreateWindowExA(std::string_view sClass, int x, int y, int nWidth, int nHeight,
                             WindowHandle hParent)
{
    if (sClass != NativeProgressBar::kClass || hParent == nullptr) {
        return nullptr;
    }
    auto& window = Created().emplace_back(std::make_unique<NativeProgressBar>());
    MoveWindow(window.get(), x, y, nWidth, nHeight);
    window->SetParent(hParent);
    return window.get();
}

void MoveWindow(WindowHandle hWnd, int x, int y, int nWidth, int nHeight)
{
    if (hWnd == nullptr) {
        return;
    }
    const float perX = System().screen->TwipsPerPixelX();
    const float perY = System().screen->TwipsPerPixelY();
    hWnd->SetPlace({static_cast<float>(x) * perX, static_cast<float>(y) * perY,
                    static_cast<float>(nWidth) * perX, static_cast<float>(nHeight) * perY});
    SendMessageA(hWnd, WM_MOVE, 0, 0);
}

void ShowWindow(WindowHandle hWnd, int nCommand)
{
    if (hWnd != nullptr) {
        hWnd->SetVisible(nCommand != SW_HIDE);
    }
}

void DestroyWindow(WindowHandle hWnd)
{
    auto& windows = Created();
    const auto found = std::find_if(windows.begin(), windows.end(),
                                    [&](const auto& window) { return window.get() == hWnd; });
    if (found != windows.end()) {
        (*found)->SetParent(nullptr);
        windows.erase(found);
    } else {
        SendMessageA(hWnd, WM_DESTROY, 0, 0);
    }
}

void SetForegroundWindow(WindowHandle hWnd)
{
    System().windows->SetForegroundWindow(hWnd);
}

void LockWindowUpdate(WindowHandle hWnd)
{
    System().windows->LockWindowUpdate(hWnd);
}

} // namespace platform
