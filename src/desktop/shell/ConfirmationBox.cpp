// SPDX-License-Identifier: MIT
#include "ConfirmationBox.h"

#include "ConfirmationText.h"
#include "ShownText.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPlainTextEdit>
#include <QStyle>
#include <QVBoxLayout>

namespace desktop {
namespace {

constexpr QSize kSize{460, 0};
constexpr int kNamesHeight = 180;
/// More than anyone reads, and few enough for the box to open without delay.
constexpr std::size_t kMostShown = 5'000;

QLabel* QuestionMark(const QWidget& widget)
{
    auto* const pLabel = new QLabel;
    const int nSize = widget.style()->pixelMetric(QStyle::PM_MessageBoxIconSize);
    pLabel->setPixmap(widget.style()->standardIcon(QStyle::SP_MessageBoxQuestion).pixmap(nSize, nSize));
    pLabel->setAlignment(Qt::AlignTop);
    return pLabel;
}

} // namespace

ConfirmationBox::ConfirmationBox(QWidget* pOwner, const tConfirmation& confirmation)
    : DialogWindow(pOwner, QStringLiteral("confirmOperation"), QStringLiteral("Move to Trash")),
      m_pNames(new QPlainTextEdit)
{
    const ConfirmationText words(confirmation);
    QLabel* const pText =
        Text(Breakable(words.Question() + QLatin1String("\n\n") + words.Concerns().join(QLatin1Char('\n'))),
             QStringLiteral("text"));
    m_pNames->setObjectName(QStringLiteral("names"));
    m_pNames->setAccessibleName(QStringLiteral("Names of these files"));
    m_pNames->setReadOnly(true);
    m_pNames->setTabChangesFocus(true);
    m_pNames->setLineWrapMode(QPlainTextEdit::NoWrap);
    m_pNames->setPlainText(words.Names(kMostShown));
    m_pNames->setMinimumHeight(kNamesHeight);
    m_pNames->hide();

    auto* const pButtons = new QDialogButtonBox;
    QPushButton* const pWithCopy =
        AddChoice(*pButtons, words.WithCopyButton(), QStringLiteral("yes"), Consent::WithCopy);
    AddChoice(*pButtons, words.AllButton(), QStringLiteral("all"), Consent::All);
    QPushButton* const pCancel = AddButton(*pButtons, QStringLiteral("Cancel"), QDialogButtonBox::RejectRole,
                                           QStringLiteral("no"), [this] { reject(); });
    QPushButton* const pUnfold = AddButton(*pButtons, QStringLiteral("Show &Names"),
                                           QDialogButtonBox::ActionRole, QStringLiteral("unfold"));
    pUnfold->setAutoDefault(false);
    pUnfold->setCheckable(true);
    connect(pUnfold, &QPushButton::toggled, this, &ConfirmationBox::Unfold);

    auto* const pTop = new QHBoxLayout;
    pTop->addWidget(QuestionMark(*this));
    pTop->addWidget(pText, 1);
    auto* const pLayout = new QVBoxLayout(this);
    pLayout->addLayout(pTop);
    pLayout->addWidget(m_pNames, 1);
    pLayout->addWidget(pButtons);
    QPushButton* const pDefault = pWithCopy != nullptr ? pWithCopy : pCancel;
    pDefault->setDefault(true);
    pDefault->setFocus();
    pDefault->setAccessibleDescription(pText->text());
    setAccessibleDescription(pText->text());
    SizeFor(kSize);
}

QPushButton* ConfirmationBox::AddChoice(QDialogButtonBox& buttons, const QString& sText, const QString& sName,
                                        Consent consent)
{
    if (sText.isEmpty()) {
        return nullptr;
    }
    return AddButton(buttons, sText, QDialogButtonBox::AcceptRole, sName, [this, consent] {
        m_consent = consent;
        accept();
    });
}

void ConfirmationBox::Unfold(bool bShown)
{
    m_pNames->setVisible(bShown);
    SizeFor({width(), 0});
}

Consent ConfirmationBox::Answer()
{
    // Esc and the close button leave m_consent at Cancel.
    Ask();
    return m_consent;
}

} // namespace desktop
