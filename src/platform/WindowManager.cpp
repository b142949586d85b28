#include "WindowManager.h"

#include "System.h"
#include "Widgets.h"

#include <algorithm>
#include <memory>
#include <vector>

namespace platform {
namespace {

/// The windows that CreateWindowExA made and nobody has destroyed.
std::vector<std::unique_ptr<ProgressWindow>>& Created()
{
    static std::vector<std::unique_ptr<ProgressWindow>> windows;
    return windows;
}

} // namespace

void InitCommonControls() {}

WindowHandle FindWindowExA(WindowHandle hParent, WindowHandle hChildAfter, std::string_view sClass)
{
    if (hParent == nullptr) {
        return nullptr;
    }
    const auto& children = hParent->Children();
    auto first = children.begin();
    if (hChildAfter != nullptr) {
        first = std::find(children.begin(), children.end(), hChildAfter);
        first += first == children.end() ? 0 : 1;
    }
    const auto found = std::find_if(first, children.end(), [&](auto* p) { return p->ClassName() == sClass; });
    return found == children.end() ? nullptr : *found;
}

long SendMessageA(WindowHandle hWnd, unsigned nMessage, long wParam, long lParam)
{
    return hWnd == nullptr ? 0 : hWnd->Message(nMessage, wParam, lParam);
}

WindowHandle CreateWindowExA(std::string_view sClass, int x, int y, int nWidth, int nHeight,
                             WindowHandle hParent)
{
    if (sClass != ProgressWindow::kClass || hParent == nullptr) {
        return nullptr;
    }
    auto& window = Created().emplace_back(std::make_unique<ProgressWindow>());
    MoveWindow(window.get(), x, y, nWidth, nHeight);
    window->SetParent(hParent);
    return window.get();
}

void MoveWindow(WindowHandle hWnd, int x, int y, int nWidth, int nHeight)
{
    if (hWnd == nullptr) {
        return;
    }
    const float perX = TheScreen().TwipsPerPixelX();
    const float perY = TheScreen().TwipsPerPixelY();
    hWnd->SetPlace({static_cast<float>(x) * perX, static_cast<float>(y) * perY,
                    static_cast<float>(nWidth) * perX, static_cast<float>(nHeight) * perY});
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
    }
}

void SetForegroundWindow(WindowHandle hWnd)
{
    Windows().SetForegroundWindow(hWnd);
}

void LockWindowUpdate(WindowHandle hWnd)
{
    Windows().LockWindowUpdate(hWnd);
}

} // namespace platform
