// SPDX-License-Identifier: MIT
#include "HostedFolderDialog.h"

#include "Twips.h"
#include "WidgetOf.h"
#include "WindowFunctions.h"

#include <utility>

namespace desktop {

HostedFolderDialog::HostedFolderDialog(platform::BROWSEINFO info)
    : m_info(std::move(info)), m_model(RootFolders()), m_pView(new FolderTreeView(m_model))
{
    EnterWidget(m_tree, m_pView);
    m_tree.SetParent(this);
    m_tree.Observe(this);
    QObject::connect(
        m_pView->selectionModel(), &QItemSelectionModel::currentChanged, &m_loop,
        [this](const QModelIndex& current) { Tell(platform::BFFM_SELCHANGED, FolderModel::Item(current)); });
}

HostedFolderDialog::~HostedFolderDialog()
{
    m_tree.Observe(nullptr);
    m_tree.SetParent(nullptr);
    RemoveWidget(m_tree);
    delete m_pView;
}

void HostedFolderDialog::Tell(unsigned uMsg, long lParam)
{
    if (m_info.lpfn != nullptr) {
        m_info.lpfn(this, uMsg, lParam, m_info.lParam);
    }
}

void HostedFolderDialog::Run()
{
    // The program may change the dialog, including its position, before it is moved there.
    Tell(platform::BFFM_INITIALIZED, 0);
    const QRect place = PixelRect(Place());
    platform::MoveWindow(this, place.x(), place.y(), place.width(), place.height());
    // Something is always selected. A view with the focus already has a current folder, but does not show it
    // as selected.
    const QModelIndex first = m_model.index(0, 0);
    if (m_pView) {
        m_pView->setCurrentIndex(m_pView->currentIndex().isValid() ? m_pView->currentIndex() : first);
    }
    if (m_pView && m_pView->currentIndex() == first) {
        m_pView->expand(first);
    }
    if (!m_bClosed) {
        m_loop.exec();
    }
}

long HostedFolderDialog::Message(unsigned nMessage, long wParam, long lParam)
{
    if (nMessage != platform::WM_CLOSE && nMessage != platform::WM_DESTROY) {
        return NativeWindow::Message(nMessage, wParam, lParam);
    }
    m_bClosed = true;
    m_loop.quit();
    return 0;
}

long HostedFolderDialog::TextMessage(unsigned nMessage, long wParam, const std::string& sText)
{
    if (nMessage != platform::BFFM_SETSELECTIONA || wParam != 1 || !m_pView) {
        return NativeWindow::TextMessage(nMessage, wParam, sText);
    }
    const QModelIndex folder = m_model.Find(sText.substr(0, sText.find('\0')));
    if (folder.isValid()) {
        m_pView->ShowFolder(folder);
    }
    return 0;
}

/// The tree has been moved to another parent or position.
void HostedFolderDialog::StateChanged(platform::Observable& /*control*/)
{
    FolderTreeView* const pView = m_pView;
    if (pView == nullptr) {
        return;
    }
    QWidget* const pHost = WidgetOf(m_tree.Parent());
    if (pView->parentWidget() != pHost) {
        Host(*pView, pHost);
    }
    pView->setGeometry(PixelRect(m_tree.Place()));
}

/// Shows the tree inside a widget and lets it take the focus in place of that widget; with null, hides it.
void HostedFolderDialog::Host(FolderTreeView& view, QWidget* pHost)
{
    if (QWidget* const pBefore = view.parentWidget()) {
        pBefore->setFocusPolicy(m_hostsFocusPolicy);
    }
    view.setParent(pHost);
    if (pHost == nullptr) {
        return;
    }
    m_hostsFocusPolicy = pHost->focusPolicy();
    pHost->setFocusPolicy(Qt::NoFocus);
    QWidget::setTabOrder(pHost, &view);
    view.show();
    view.setFocus();
}

} // namespace desktop
