#include "OutcomeSummary.h"

#include "ShownText.h"
#include "SizeText.h"

#include <QApplication>
#include <QClipboard>
#include <QLabel>
#include <QPlainTextEdit>
#include <QVBoxLayout>
#include <algorithm>

namespace desktop {
namespace {

constexpr QSize kSize{560, 320};
/// More than a person reads, and few enough for the window to come up at once. All can be copied.
constexpr std::size_t kMostShown = 5'000;

QString Done(FileOperation operation)
{
    switch (operation) {
    case FileOperation::Move:
        return QStringLiteral("moved");
    case FileOperation::Copy:
        return QStringLiteral("copied");
    default:
        return QStringLiteral("moved to the trash");
    }
}

/// "1 file was", "3 of 10 files were".
QString Share(std::size_t nPart, std::size_t nAll)
{
    const QString sAll = CountText(static_cast<std::int64_t>(nAll), "file", "files");
    const QString sFiles =
        nPart == nAll ? sAll
                      : QStringLiteral("%1 of %2").arg(NumberText(static_cast<std::int64_t>(nPart)), sAll);
    return sFiles + QLatin1String(nPart == 1 ? " was" : " were");
}

QString Sentences(const tOperation& operation, const tOperationOutcome& outcome)
{
    const std::size_t nAll = operation.nFiles + operation.nMissing;
    QStringList sentences;
    if (outcome.bCancelled) {
        sentences << QStringLiteral("You cancelled. %1 %2 before.")
                         .arg(Share(outcome.nFilesDone, nAll), Done(operation.operation));
    }
    if (!outcome.notDone.empty()) {
        sentences << QStringLiteral("%1 not %2:")
                         .arg(Share(outcome.notDone.size(), nAll), Done(operation.operation));
    }
    if (!outcome.remarks.empty()) {
        sentences << QStringLiteral("There is something to know of %1:")
                         .arg(CountText(static_cast<std::int64_t>(outcome.remarks.size()), "file", "files"));
    }
    return sentences.join(QLatin1Char('\n'));
}

/// Each file with the reason below it.
QString Lines(const std::vector<tNotDone>& notDone, std::size_t nMost)
{
    QString sLines;
    for (std::size_t n = 0; n < std::min(nMost, notDone.size()); ++n) {
        sLines += ShownText(notDone[n].sPath) + QLatin1String("\n    ") + ShownText(notDone[n].sReason) +
                  QLatin1Char('\n');
    }
    if (notDone.size() > nMost) {
        sLines += QStringLiteral("and %1 more\n")
                      .arg(NumberText(static_cast<std::int64_t>(notDone.size() - nMost)));
    }
    return sLines;
}

} // namespace

bool OutcomeSummary::IsNeeded(const tOperationOutcome& outcome)
{
    return !outcome.notDone.empty() || !outcome.remarks.empty() ||
           (outcome.bCancelled && outcome.nFilesDone > 0);
}

OutcomeSummary::OutcomeSummary(QWidget* pOwner, const tOperation& operation, const tOperationOutcome& outcome)
    : ShellDialog(pOwner, QStringLiteral("operationSummary"), QStringLiteral("Tallyfen"))
{
    auto* const pText = new QLabel(Sentences(operation, outcome));
    pText->setObjectName(QStringLiteral("text"));
    pText->setTextFormat(Qt::PlainText);
    pText->setWordWrap(true);
    auto* const pButtons = new QDialogButtonBox;
    QPushButton* const pClose =
        AddButton(*pButtons, QStringLiteral("Close"), QDialogButtonBox::RejectRole, QStringLiteral("close"));
    connect(pClose, &QPushButton::clicked, this, &OutcomeSummary::reject);

    // What was not done comes first, as the sentences have it.
    std::vector<tNotDone> lines = outcome.notDone;
    lines.insert(lines.end(), outcome.remarks.begin(), outcome.remarks.end());

    auto* const pLayout = new QVBoxLayout(this);
    pLayout->addWidget(pText);
    if (lines.empty()) {
        pLayout->addStretch();
    } else {
        auto* const pList = new QPlainTextEdit(Lines(lines, kMostShown));
        pList->setObjectName(QStringLiteral("notDone"));
        pList->setAccessibleName(pText->text());
        pList->setReadOnly(true);
        pList->setTabChangesFocus(true);
        pList->setLineWrapMode(QPlainTextEdit::NoWrap);
        pLayout->addWidget(pList, 1);
        QPushButton* const pCopy = AddButton(*pButtons, QStringLiteral("C&opy All"),
                                             QDialogButtonBox::ActionRole, QStringLiteral("copy"));
        pCopy->setAutoDefault(false);
        connect(pCopy, &QPushButton::clicked, this,
                [lines] { QApplication::clipboard()->setText(Lines(lines, lines.size())); });
    }
    pLayout->addWidget(pButtons);
    if (auto* const pCopy = findChild<QPushButton*>(QStringLiteral("copy"))) {
        setTabOrder(pCopy, pClose); // else Tab does not come back to Close
    }
    pClose->setDefault(true);
    SizeFor(lines.empty() ? QSize(kSize.width() / 2, 0) : kSize);
    pClose->setFocus();
}

} // namespace desktop
