// SPDX-License-Identifier: MIT
#pragma once

#include "FolderModel.h"
#include "FolderTreeView.h"
#include "NativeWindow.h"
#include "Observable.h"
#include "ShellDialogs.h"

#include <QEventLoop>
#include <QPointer>
#include <string>
#include <string_view>

namespace desktop {

/// The shell's folder dialog. It is never visible itself: the program moves its tree into one of its own
/// windows.
class HostedFolderDialog final : public platform::NativeWindow, private platform::Observer
{
public:
    explicit HostedFolderDialog(platform::BROWSEINFO info);
    HostedFolderDialog(const HostedFolderDialog&) = delete;
    HostedFolderDialog& operator=(const HostedFolderDialog&) = delete;
    ~HostedFolderDialog() override;

    /// Sets up the dialog, notifies the callback, and runs an event loop until the dialog is closed.
    void Run();

    /// The full path of an item of the tree; empty for an invalid item.
    [[nodiscard]] std::string Path(platform::ItemId item) const { return m_model.Path(item); }

    /// The native class of dialog boxes.
    [[nodiscard]] std::string_view ClassName() const override { return "#32770"; }
    long Message(unsigned nMessage, long wParam, long lParam) override;
    long TextMessage(unsigned nMessage, long wParam, const std::string& sText) override;

private:
    /// The tree as the program sees it.
    class Tree final : public platform::NativeWindow
    {
    public:
        [[nodiscard]] std::string_view ClassName() const override
        {
            return platform::ShellDialogs::kTreeClass;
        }
    };

    void StateChanged(platform::Observable& control) override;
    void Host(FolderTreeView& view, QWidget* pHost);
    void Tell(unsigned uMsg, long lParam);

    const platform::BROWSEINFO m_info;
    FolderModel m_model;
    Tree m_tree;
    QPointer<FolderTreeView> m_pView; ///< deleted by its host widget, if that is deleted first
    Qt::FocusPolicy m_hostsFocusPolicy = Qt::NoFocus;
    QEventLoop m_loop;
    bool m_bClosed = false;
};

} // namespace desktop
