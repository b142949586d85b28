// SPDX-License-Identifier: MIT
#include "ProgramChooser.h"

#include "LaunchCode.h"
#include "NoticeLabel.h"
#include "Paths.h"
#include "ShownText.h"
#include "SpokenRows.h"

#include <QCoreApplication>
#include <QIcon>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QStyle>
#include <QToolButton>
#include <QVBoxLayout>
#include <utility>

namespace desktop {
namespace {

constexpr QSize kSize{380, 420};
constexpr int kNumber = Qt::UserRole; ///< data role of a row: the index of its application

/// The filter field: Up and Down move in the list.
class FilterEdit final : public QLineEdit
{
public:
    explicit FilterEdit(QWidget& list) : m_list(list) {}

protected:
    void keyPressEvent(QKeyEvent* pEvent) override
    {
        switch (pEvent->key()) {
        case Qt::Key_Up:
        case Qt::Key_Down:
        case Qt::Key_PageUp:
        case Qt::Key_PageDown:
            QCoreApplication::sendEvent(&m_list, pEvent);
            break;
        default:
            QLineEdit::keyPressEvent(pEvent);
        }
    }

private:
    QWidget& m_list;
};

QIcon IconOf(const tApplication& application, const QStyle& style)
{
    const QString sIcon = QString::fromStdString(application.sIcon);
    const QIcon icon = sIcon.startsWith(QLatin1Char('/')) ? QIcon(sIcon) : QIcon::fromTheme(sIcon);
    // The names are aligned only if each has an icon.
    return icon.availableSizes().isEmpty() && icon.name().isEmpty() ? style.standardIcon(QStyle::SP_FileIcon)
                                                                    : icon;
}

} // namespace

ProgramChooser::ProgramChooser(QWidget* pOpenedFrom, const std::string& sPath,
                               const tApplications& applications, Starter start)
    : StandingWindow(pOpenedFrom, QStringLiteral("programChooser"), QStringLiteral("Choose Program")),
      m_start(std::move(start)), m_pList(new SpokenRows<QListWidget>), m_pSaid(new NoticeLabel)
{
    QLabel* const pText = Text(Breakable(QStringLiteral("Choose the program to open \u201c%1\u201d with.")
                                             .arg(ShownText(platform::NameIn(sPath)))));
    m_pFilter = new FilterEdit(*m_pList);
    m_pFilter->setObjectName(QStringLiteral("filter"));
    m_pFilter->setClearButtonEnabled(true);
    for (QToolButton* pClear : m_pFilter->findChildren<QToolButton*>()) {
        pClear->setAccessibleName(QStringLiteral("Clear"));
    }
    auto* const pFilterLabel = new QLabel(QStringLiteral("&Find:"));
    pFilterLabel->setBuddy(m_pFilter);
    m_pList->setObjectName(QStringLiteral("programs"));
    m_pList->setAccessibleName(QStringLiteral("Programs"));
    m_pSaid->setObjectName(QStringLiteral("said"));
    auto* const pButtons = new QDialogButtonBox;
    m_pOpen =
        AddButton(*pButtons, QStringLiteral("&Open"), QDialogButtonBox::AcceptRole, QStringLiteral("open"));
    AddButton(*pButtons, QStringLiteral("Cancel"), QDialogButtonBox::RejectRole, QStringLiteral("cancel"));

    auto* const pFind = new QHBoxLayout;
    pFind->addWidget(pFilterLabel);
    pFind->addWidget(m_pFilter);
    auto* const pLayout = new QVBoxLayout(this);
    pLayout->addWidget(pText);
    pLayout->addLayout(pFind);
    pLayout->addWidget(m_pList, 1);
    pLayout->addWidget(m_pSaid);
    pLayout->addWidget(pButtons);
    m_pOpen->setDefault(true);

    AddApplications(applications.fitting);
    if (!applications.fitting.empty() && !applications.others.empty()) {
        m_pHeading = new QListWidgetItem(QStringLiteral("Other applications"), m_pList);
        m_pHeading->setFlags(Qt::NoItemFlags);
        m_pHeading->setForeground(palette().brush(QPalette::Active, QPalette::Text));
        QFont bold = m_pList->font();
        bold.setBold(true);
        m_pHeading->setFont(bold);
    }
    AddApplications(applications.others);
    connect(pButtons, &QDialogButtonBox::accepted, this, &ProgramChooser::accept);
    connect(pButtons, &QDialogButtonBox::rejected, this, &ProgramChooser::reject);
    connect(m_pFilter, &QLineEdit::textChanged, this, &ProgramChooser::Filter);
    connect(m_pList, &QListWidget::itemDoubleClicked, this, &ProgramChooser::accept);
    Filter();
    SizeFor(kSize);
    m_pList->setFocus();
}

void ProgramChooser::AddApplications(const std::vector<tApplication>& applications)
{
    for (const tApplication& each : applications) {
        auto* const pItem = new QListWidgetItem(IconOf(each, *style()), ShownText(each.sName), m_pList);
        pItem->setData(kNumber, static_cast<int>(m_applications.size()));
        m_applications.push_back(each);
    }
}

/// Shows the applications whose names contain the text, or a notice if there are none.
void ProgramChooser::Filter()
{
    const QString sText = m_pFilter->text().trimmed();
    int nShown = 0;
    for (int n = 0; n < m_pList->count(); ++n) {
        QListWidgetItem* const pItem = m_pList->item(n);
        const bool bShown =
            pItem == m_pHeading ? sText.isEmpty() : pItem->text().contains(sText, Qt::CaseInsensitive);
        pItem->setHidden(!bShown);
        nShown += bShown && pItem != m_pHeading ? 1 : 0;
    }
    m_pSaid->Say(nShown > 0               ? QString()
                 : m_applications.empty() ? QStringLiteral("No program that opens files is installed.")
                                          : QStringLiteral("No program has this in its name."));
    m_pOpen->setEnabled(nShown > 0);
    const QListWidgetItem* const pCurrent = m_pList->currentItem();
    if (pCurrent == nullptr || pCurrent->isHidden()) {
        SelectFirst();
    }
}

void ProgramChooser::SelectFirst()
{
    QListWidgetItem* pFirst = nullptr;
    for (int n = m_pList->count(); n-- > 0;) {
        QListWidgetItem* const pItem = m_pList->item(n);
        pFirst = pItem->isHidden() || pItem == m_pHeading ? pFirst : pItem;
    }
    m_pList->setCurrentItem(pFirst);
}

void ProgramChooser::accept()
{
    const QListWidgetItem* const pItem = m_pList->currentItem();
    if (pItem == nullptr || pItem->isHidden() || pItem == m_pHeading) {
        return;
    }
    const long nCode = m_start(m_applications[static_cast<std::size_t>(pItem->data(kNumber).toInt())]);
    if (nCode == kStarted) {
        StandingWindow::accept();
        return;
    }
    m_pSaid->Say(QStringLiteral("%1 could not be started.\n%2")
                     .arg(pItem->text(), QString::fromStdString(CodeInWords(nCode))));
}

} // namespace desktop
