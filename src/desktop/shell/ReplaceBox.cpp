// SPDX-License-Identifier: MIT
#include "ReplaceBox.h"

#include "PathLabel.h"
#include "Paths.h"
#include "ShownText.h"
#include "SizeText.h"
#include "Texts.h"

#include <QCheckBox>
#include <QFormLayout>
#include <QGroupBox>
#include <QVBoxLayout>

namespace desktop {
namespace {

constexpr QSize kSize{460, 0};

QString DateText(double dtDate)
{
    return dtDate == 0 ? QStringLiteral("unknown") : QString::fromStdString(platform::FormatDateTime(dtDate));
}

QLabel* Line(const QString& sText)
{
    auto* const pLabel = new QLabel(sText);
    pLabel->setTextFormat(Qt::PlainText);
    pLabel->setTextInteractionFlags(Qt::TextSelectableByMouse);
    return pLabel;
}

/// The facts about a file, and how it compares with the other one where that matters.
QGroupBox* Facts(const QString& sTitle, const tFileFacts& file, const QString& sSize, const QString& sDate)
{
    auto* const pBox = new QGroupBox(sTitle);
    auto* const pPath = new PathLabel;
    pPath->ShowPath(file.sPath);
    auto* const pLines = new QFormLayout(pBox);
    pLines->addRow(QStringLiteral("Path:"), pPath);
    pLines->addRow(QStringLiteral("Size:"), Line(FullSize(file.cySize) + sSize));
    pLines->addRow(QStringLiteral("Changed:"), Line(DateText(file.dtDate) + sDate));
    return pBox;
}

/// The same as one line for assistive programs, since plain labels cannot get the keyboard focus.
QString SpokenFacts(const QString& sTitle, const tFileFacts& file, const QString& sSize, const QString& sDate)
{
    return QStringLiteral("\n%1: %2, %3%4, %5%6.")
        .arg(sTitle, ShownText(file.sPath), FullSize(file.cySize), sSize, DateText(file.dtDate), sDate);
}

template <typename T>
QString Compared(T source, T target, const char* pLess, const char* pMore, const char* pSame)
{
    return QLatin1String(source < target ? pLess : source > target ? pMore : pSame);
}

} // namespace

ReplaceBox::ReplaceBox(QWidget* pOwner, const tFileFacts& source, const tFileFacts& target, bool bIdentical)
    : DialogWindow(pOwner, QStringLiteral("replaceQuestion"), QStringLiteral("Replace File")),
      m_pForAll(new QCheckBox(QStringLiteral("Do the same for &all further files")))
{
    m_pForAll->setObjectName(QStringLiteral("forAll"));
    auto* const pText = Line(Breakable(
        QStringLiteral(
            "A file named \u201c%1\u201d is already there. Replace it? It goes to the trash then.%2")
            .arg(ShownText(platform::NameIn(target.sPath)),
                 QLatin1String(bIdentical ? "\nThe files are identical." : ""))));
    pText->setWordWrap(true);
    const QString sThere = QStringLiteral("File that is there");
    const QString sWouldReplace = QStringLiteral("File that would replace it");
    const QString sSize = Compared(source.cySize, target.cySize, " (smaller)", " (larger)", " (same size)");
    const QString sDate =
        source.dtDate == 0 || target.dtDate == 0
            ? QString()
            : Compared(source.dtDate, target.dtDate, " (older)", " (newer)", " (same time)");
    pText->setAccessibleName(pText->text() + SpokenFacts(sThere, target, {}, {}) +
                             SpokenFacts(sWouldReplace, source, sSize, sDate));
    auto* const pButtons = new QDialogButtonBox;
    const auto add = [&](const QString& sLabel, QDialogButtonBox::ButtonRole role, const QString& sName,
                         tReplaceAnswer::Choice choice) {
        return AddButton(*pButtons, sLabel, role, sName, [this, choice] {
            m_choice = choice;
            accept();
        });
    };
    add(QStringLiteral("&Replace"), QDialogButtonBox::AcceptRole, QStringLiteral("replace"),
        tReplaceAnswer::Choice::Replace);
    QPushButton* const pSkip = add(QStringLiteral("&Skip"), QDialogButtonBox::NoRole, QStringLiteral("skip"),
                                   tReplaceAnswer::Choice::Skip);
    add(QStringLiteral("Cancel"), QDialogButtonBox::RejectRole, QStringLiteral("cancel"),
        tReplaceAnswer::Choice::Cancel);

    auto* const pLayout = new QVBoxLayout(this);
    pLayout->addWidget(pText);
    pLayout->addWidget(Facts(sThere, target, {}, {}));
    pLayout->addWidget(Facts(sWouldReplace, source, sSize, sDate));
    pLayout->addWidget(m_pForAll);
    pLayout->addStretch();
    pLayout->addWidget(pButtons);
    pSkip->setDefault(true);
    pSkip->setFocus();
    SizeFor(kSize);
}

tReplaceAnswer ReplaceBox::Answer()
{
    // Esc and the close button leave the choice unchanged.
    Ask();
    return {m_choice, m_choice != tReplaceAnswer::Choice::Cancel && m_pForAll->isChecked()};
}

} // namespace desktop
