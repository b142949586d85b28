// SPDX-License-Identifier: MIT
#include "FolderPane.h"

#include "PathLabel.h"
#include "Paths.h"
#include "PointerAtRest.h"
#include "Questions.h"
#include "ShownText.h"

#include <QGridLayout>
#include <QInputDialog>
#include <QLineEdit>
#include <QPushButton>
#include <cerrno>
#include <sys/stat.h>

namespace desktop {
namespace {

QString WhyNotMade(int nError)
{
    switch (nError) {
    case EEXIST:
        return QStringLiteral("There is something of that name already.");
    case EACCES:
    case EPERM:
        return QStringLiteral("You are not permitted to make folders here.");
    default:
        return ErrorSentence(nError);
    }
}

} // namespace

FolderPane::FolderPane()
    : m_pLayout(new QGridLayout(this)), m_model(RootFolders()), m_pView(new FolderTreeView(m_model)),
      m_pPath(new PathLabel), m_pNewFolder(new QPushButton(QStringLiteral("Ne&w Folder")))
{
    m_pView->setObjectName(QStringLiteral("folders"));
    m_pPath->setObjectName(QStringLiteral("folder"));
    m_pNewFolder->setObjectName(QStringLiteral("newFolder"));
    m_pNewFolder->setAutoDefault(false);
    m_pLayout->setContentsMargins({});
    m_pLayout->addWidget(m_pView, 0, 0);
    m_pLayout->addWidget(m_pPath, 1, 0, 1, -1);
    m_pLayout->setColumnStretch(0, 3);
    connect(m_pNewFolder, &QPushButton::clicked, this, &FolderPane::MakeFolder);
    connect(m_pView->selectionModel(), &QItemSelectionModel::currentChanged, this,
            [this] { m_pPath->ShowPath(Folder()); });
    m_pView->setCurrentIndex(m_model.index(0, 0));
    m_pView->expand(m_pView->currentIndex());
}

void FolderPane::Select(const std::string& sPath)
{
    if (!sPath.starts_with('/')) {
        return;
    }
    std::string sFolder = sPath;
    QModelIndex found = m_model.Find(sFolder);
    while (!found.isValid() && sFolder.size() > 1) {
        sFolder = platform::FolderOf(sFolder);
        found = m_model.Find(sFolder);
    }
    if (found.isValid()) {
        m_pView->ShowFolder(found);
    }
}

void FolderPane::ShowBeside(QWidget& widget)
{
    m_pLayout->addWidget(&widget, 0, 1);
    m_pLayout->setColumnStretch(1, 2);
}

QLayout* FolderPane::BottomRow(QWidget& buttons)
{
    auto* const pRow = new QHBoxLayout;
    pRow->addWidget(m_pNewFolder);
    pRow->addWidget(&buttons, 1);
    return pRow;
}

void FolderPane::MakeFolder()
{
    const QModelIndex folder = m_pView->currentIndex();
    QInputDialog question(this);
    question.setObjectName(QStringLiteral("newFolderQuestion"));
    question.setWindowTitle(QStringLiteral("New Folder"));
    question.setLabelText(QStringLiteral("&Name of the new folder:"));
    question.setTextValue(QStringLiteral("New Folder"));
    const PointerAtRest pointer;
    if (question.exec() != QDialog::Accepted || question.textValue().isEmpty()) {
        return;
    }
    const std::string sName = question.textValue().toStdString();
    const std::string sFolder = Folder();
    constexpr mode_t kMode = 0777;
    const bool bOneName = sName.find('/') == std::string::npos;
    if (bOneName && mkdir(platform::PathIn(sFolder, sName).c_str(), kMode) == 0) {
        m_pView->ShowFolder(m_model.Add(folder, sName));
        m_pView->setFocus();
        return;
    }
    SayFault(this, QStringLiteral("newFolderFault"),
             QStringLiteral("The folder \u201c%1\u201d could not be made.\n%2")
                 .arg(ShownText(sName),
                      bOneName ? WhyNotMade(errno) : QStringLiteral("A name cannot contain \u201c/\u201d.")));
}

} // namespace desktop
