// SPDX-License-Identifier: MIT
#pragma once

#include "Control.h"
#include "FolderPane.h"
#include "ShellDialog.h"
#include "ShellDialogs.h"

#include <string>

namespace desktop {

/// The modal question for a folder. Enter says OK, Esc Cancel.
class FolderChooser final : public ShellDialog
{
public:
    /// `info` must outlive the window.
    explicit FolderChooser(const platform::BROWSEINFO& info);
    FolderChooser(const FolderChooser&) = delete;
    FolderChooser& operator=(const FolderChooser&) = delete;
    ~FolderChooser() override;

    /// Shows the window, tells the callback once it is up, and returns the folder chosen, exact bytes, or an
    /// empty text.
    std::string Choose();

private:
    /// The window as the program's callback sees it.
    class Window final : public platform::Control
    {
    public:
        explicit Window(FolderPane& pane) : m_pane(pane) {}
        long TextMessage(unsigned nMessage, long wParam, const std::string& sText) override;

    private:
        FolderPane& m_pane;
    };

    const platform::BROWSEINFO& m_info;
    FolderPane* m_pPane;
    Window m_window;
};

} // namespace desktop
