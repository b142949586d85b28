// SPDX-License-Identifier: MIT
#include "Questions.h"

#include "PointerAtRest.h"
#include "ShownText.h"

#include <QPushButton>

namespace desktop {

bool AskYesNo(QWidget* pOwner, const tQuestion& question)
{
    QMessageBox box(QMessageBox::Question, AsTitle(question.sTitle), Breakable(question.sText),
                    QMessageBox::NoButton, pOwner);
    box.setObjectName(question.sName);
    box.setTextFormat(Qt::PlainText);
    QPushButton* const pYes = box.addButton(question.sYes, QMessageBox::AcceptRole);
    pYes->setObjectName(QStringLiteral("yes"));
    QPushButton* const pNo = box.addButton(QMessageBox::Cancel);
    pNo->setObjectName(QStringLiteral("no"));
    box.setDefaultButton(question.bYesAtOnce ? pYes : pNo);
    box.setEscapeButton(pNo);
    const PointerAtRest pointer;
    box.exec();
    return box.clickedButton() == pYes;
}

void SayFault(QWidget* pOwner, const QString& sName, const QString& sText, QMessageBox::Icon icon)
{
    QMessageBox box(icon, QStringLiteral("Tallyfen"), Breakable(sText), QMessageBox::Ok, pOwner);
    box.setObjectName(sName);
    box.setTextFormat(Qt::PlainText);
    box.button(QMessageBox::Ok)->setObjectName(QStringLiteral("ok"));
    const PointerAtRest pointer;
    box.exec();
}

} // namespace desktop
