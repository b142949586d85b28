// SPDX-License-Identifier: MIT
#include "FolderChooser.h"

#include "ShownText.h"
#include "WidgetOf.h"

#include <QVBoxLayout>

namespace desktop {
namespace {

constexpr QSize kSize{380, 420};

} // namespace

long FolderChooser::Window::TextMessage(unsigned nMessage, long wParam, const std::string& sText)
{
    if (nMessage != platform::BFFM_SETSELECTIONA || wParam != 1) {
        return NativeWindow::TextMessage(nMessage, wParam, sText);
    }
    m_pane.Select(sText.substr(0, sText.find('\0')));
    return 0;
}

FolderChooser::FolderChooser(const platform::BROWSEINFO& info)
    : DialogWindow(OwnerOf(info.hwndOwner), QStringLiteral("folderChooser"),
                   QStringLiteral("Browse for Folder")),
      m_info(info), m_pPane(new FolderPane), m_window(*m_pPane)
{
    EnterWidget(m_window, this);
    auto* const pButtons = new QDialogButtonBox;
    QPushButton* const pOk = AddButton(*pButtons, QStringLiteral("OK"), QDialogButtonBox::AcceptRole,
                                       QStringLiteral("ok"), [this] { accept(); });
    AddButton(*pButtons, QStringLiteral("Cancel"), QDialogButtonBox::RejectRole, QStringLiteral("cancel"),
              [this] { reject(); });

    auto* const pLayout = new QVBoxLayout(this);
    pLayout->addWidget(Text(ShownLines(info.lpszTitle), QStringLiteral("text")));
    pLayout->addWidget(m_pPane, 1);
    pLayout->addLayout(m_pPane->BottomRow(*pButtons));
    pOk->setDefault(true);
    SizeFor(kSize);
    m_pPane->View().setFocus();
}

FolderChooser::~FolderChooser()
{
    RemoveWidget(m_window);
}

std::string FolderChooser::Choose()
{
    setModal(true);
    show();
    if (m_info.lpfn != nullptr) {
        m_info.lpfn(&m_window, platform::BFFM_INITIALIZED, 0, m_info.lParam);
    }
    return Ask() ? m_pPane->Folder() : std::string();
}

} // namespace desktop
