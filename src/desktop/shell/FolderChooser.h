// SPDX-License-Identifier: MIT
#pragma once

#include "DialogWindow.h"
#include "FolderPane.h"
#include "NativeWindow.h"
#include "ShellDialogs.h"

#include <string>

namespace desktop {

/// The modal dialog that asks for a folder. Enter presses OK, Esc presses Cancel.
class FolderChooser final : public DialogWindow
{
public:
    /// `info` must outlive the dialog.
    explicit FolderChooser(const platform::BROWSEINFO& info);
    FolderChooser(const FolderChooser&) = delete;
    FolderChooser& operator=(const FolderChooser&) = delete;
    ~FolderChooser() override;

    /// Shows the dialog, notifies the callback once it is visible, and returns the chosen folder, exact
    /// bytes; empty on Cancel.
    std::string Choose();

private:
    /// The dialog as the program's callback sees it.
    class Window final : public platform::NativeWindow
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
