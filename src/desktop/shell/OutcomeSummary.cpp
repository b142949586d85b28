// SPDX-License-Identifier: MIT
#include "OutcomeSummary.h"

#include "ShownText.h"
#include "SizeText.h"

#include <QApplication>
#include <QClipboard>
#include <QPlainTextEdit>
#include <QVBoxLayout>
#include <algorithm>
#include <string_view>
#include <unordered_map>

namespace desktop {
namespace {

constexpr QSize kSize{560, 320};
/// More than anyone reads, and few enough for the window to open without delay. All lines can be copied.
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
    const QString sShare =
        QStringLiteral("%1 %2").arg(Share(outcome.nFilesDone, nAll), Done(operation.operation));
    QStringList sentences;
    if (outcome.bCancelled) {
        sentences << QStringLiteral("You cancelled. %1 before.").arg(sShare);
    } else if (outcome.nFilesDone > 0) {
        sentences << sShare + QLatin1Char('.');
    }
    if (outcome.nReplaced > 0) {
        sentences << QStringLiteral("%1 replaced at the destination and put into the trash.")
                         .arg(Share(outcome.nReplaced, outcome.nReplaced));
    }
    if (outcome.nSkipped > 0) {
        sentences << QStringLiteral("%1 skipped.").arg(Share(outcome.nSkipped, outcome.nSkipped));
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

using NotDone = std::vector<tNotDone>;

/// Groups the files by reason, in the order in which the reasons first occur.
std::vector<std::vector<const tNotDone*>> ByReason(const NotDone& notDone)
{
    std::vector<std::vector<const tNotDone*>> groups;
    std::unordered_map<std::string_view, std::size_t> places;
    for (const tNotDone& each : notDone) {
        const auto [place, bNew] = places.try_emplace(each.sReason, groups.size());
        if (bNew) {
            groups.emplace_back();
        }
        groups[place->second].push_back(&each);
    }
    return groups;
}

/// Each reason, with the number of its files if there are several, followed by the files.
QString Lines(const NotDone& notDone, std::size_t nMost)
{
    QString sLines;
    std::size_t nLeft = nMost;
    for (const auto& files : ByReason(notDone)) {
        if (nLeft == 0) {
            break;
        }
        sLines += ShownText(files.front()->sReason);
        if (files.size() > 1) {
            sLines += QStringLiteral(" (%1)").arg(
                CountText(static_cast<std::int64_t>(files.size()), "file", "files"));
        }
        sLines += QLatin1Char('\n');
        const std::size_t nShown = std::min(nLeft, files.size());
        for (std::size_t n = 0; n < nShown; ++n) {
            sLines += QLatin1String("    ") + ShownText(files[n]->sPath) + QLatin1Char('\n');
        }
        nLeft -= nShown;
    }
    if (notDone.size() > nMost) {
        sLines += QStringLiteral("and %1 more\n")
                      .arg(NumberText(static_cast<std::int64_t>(notDone.size() - nMost)));
    }
    return sLines;
}

std::int64_t SparedIn(const NotDone& notDone)
{
    return std::count_if(notDone.begin(), notDone.end(), [](const auto& each) { return each.bSpared; });
}

} // namespace

bool OutcomeSummary::IsNeeded(const tOperationOutcome& outcome)
{
    return !outcome.notDone.empty() || !outcome.remarks.empty() || outcome.nSkipped > 0 ||
           outcome.nReplaced > 0 || (outcome.bCancelled && outcome.nFilesDone > 0);
}

OutcomeSummary::OutcomeSummary(QWidget* pOwner, const tOperation& operation, const tOperationOutcome& outcome)
    : DialogWindow(pOwner, QStringLiteral("operationSummary"), QStringLiteral("Tallyfen"))
{
    QLabel* const pText = Text(Sentences(operation, outcome), QStringLiteral("text"));
    auto* const pButtons = new QDialogButtonBox;
    QPushButton* const pClose = AddButton(*pButtons, QStringLiteral("Close"), QDialogButtonBox::RejectRole,
                                          QStringLiteral("close"), [this] { reject(); });

    // Files that were not processed come first, in the same order as in the sentences.
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
        pLayout->addWidget(pList, 1);
        AddButton(*pButtons, QStringLiteral("C&opy Text"), QDialogButtonBox::ActionRole,
                  QStringLiteral("copy"),
                  [lines] { QApplication::clipboard()->setText(Lines(lines, lines.size())); })
            ->setAutoDefault(false);
    }
    if (const std::int64_t nSpared = SparedIn(outcome.notDone); nSpared > 0) {
        QPushButton* const pAfterAll = AddButton(
            *pButtons, QStringLiteral("Move %1 to Trash &After All").arg(CountText(nSpared, "File", "Files")),
            QDialogButtonBox::ActionRole, QStringLiteral("afterAll"), [this] { accept(); });
        pAfterAll->setAutoDefault(false);
    }
    pLayout->addWidget(pButtons);
    if (auto* const pCopy = findChild<QPushButton*>(QStringLiteral("copy"))) {
        setTabOrder(pCopy, pClose); // otherwise Tab does not return to Close
    }
    pClose->setDefault(true);
    SizeFor(lines.empty() ? QSize(kSize.width() / 2, 0) : kSize);
    pClose->setFocus();
}

} // namespace desktop
