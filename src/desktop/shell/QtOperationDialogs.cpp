// SPDX-License-Identifier: MIT
#include "QtOperationDialogs.h"

#include "ConfirmationBox.h"
#include "ConfirmationText.h"
#include "OutcomeSummary.h"
#include "Questions.h"
#include "ReplaceBox.h"
#include "SizeText.h"

#include <QApplication>

namespace desktop {
namespace {

/// Shorter operations need no window.
constexpr qint64 kMoment = 500; // ms

tQuestion RoomQuestion(const tOperation& operation, const tRoom& room)
{
    const bool bMove = operation.operation == FileOperation::Move;
    return {.sName = QStringLiteral("askRoom"),
            .sTitle = bMove ? QStringLiteral("Move Files") : QStringLiteral("Copy Files"),
            .sText =
                QStringLiteral("There is not enough room for all of them: %1, %2; %3 are free there.\n\n"
                               "Those that still fit can be %4; the others %5.")
                    .arg(CountText(static_cast<std::int64_t>(room.nFiles), "file", "files"),
                         ShortSize(room.cyNeeded), ShortSize(room.cyFree),
                         bMove ? QStringLiteral("moved") : QStringLiteral("copied"),
                         bMove ? QStringLiteral("stay where they are") : QStringLiteral("are not copied")),
            .sYes = bMove ? QStringLiteral("&Move What Fits") : QStringLiteral("C&opy What Fits")};
}

} // namespace

QtOperationDialogs::QtOperationDialogs() : m_events([this] { Look(); }) {}

QtOperationDialogs::~QtOperationDialogs()
{
    delete m_pWindow;
}

bool QtOperationDialogs::Looking(const tOperation& soFar)
{
    if (m_pWindow == nullptr) {
        Open(soFar, OperationProgressWindow::Phase::Looking);
    }
    tOperationProgress progress;
    progress.nFilesDone = soFar.nFiles;
    progress.cyDone = soFar.cyTotal;
    return GoOn(progress);
}

Consent QtOperationDialogs::Confirm(const tConfirmation& confirmation)
{
    QWidget* const pOwner = OwnerOf(confirmation.operation.hwnd);
    if (!confirmation.concerns.empty()) {
        return ConfirmationBox(pOwner, confirmation).Answer();
    }
    const tQuestion question{.sName = QStringLiteral("confirmOperation"),
                             .sTitle = QStringLiteral("Move to Trash"),
                             .sText = ConfirmationText(confirmation).Question(),
                             .sYes = QStringLiteral("&Move to Trash"),
                             .bYesAtOnce = true};
    return AskYesNo(pOwner, question) ? Consent::All : Consent::Cancel;
}

bool QtOperationDialogs::AskRoom(const tOperation& operation, const tRoom& room)
{
    return AskYesNo(OwnerOf(operation.hwnd), RoomQuestion(operation, room));
}

tReplaceAnswer QtOperationDialogs::AskReplace(const tFileFacts& source, const tFileFacts& target,
                                              bool bIdentical)
{
    OperationProgressWindow* const pWindow = m_pWindow;
    const bool bOverProgress = pWindow != nullptr && pWindow->isVisible();
    ReplaceBox question(bOverProgress ? pWindow : OwnerOf(m_hwnd), source, target, bIdentical);
    const tReplaceAnswer answer = question.Answer();
    m_sinceStart.restart(); // does not count the time spent waiting for the user
    return answer;
}

/// Creates the progress window.
void QtOperationDialogs::Open(const tOperation& operation, OperationProgressWindow::Phase phase)
{
    m_hwnd = operation.hwnd;
    auto* const pWindow = new OperationProgressWindow(OwnerOf(operation.hwnd), operation, phase);
    m_pWindow = pWindow;
    // The end of the session cancels the operation.
    QObject::connect(qApp, &QGuiApplication::commitDataRequest, pWindow, [pWindow] { pWindow->reject(); });
    m_sinceStart.start();
}

bool QtOperationDialogs::GoOn(const tOperationProgress& progress)
{
    m_pReached = &progress;
    m_events.DoEvents(1);
    m_pReached = nullptr;
    const OperationProgressWindow* const pWindow = m_pWindow;
    return pWindow == nullptr || !pWindow->Cancelled();
}

/// Updates the progress window, and processes the user's input.
void QtOperationDialogs::Look()
{
    OperationProgressWindow* const pWindow = m_pWindow;
    if (pWindow != nullptr && m_pReached != nullptr) {
        if (m_sinceStart.elapsed() >= kMoment) {
            pWindow->show();
        }
        if (pWindow->isVisible()) {
            pWindow->ShowProgress(*m_pReached);
        }
    }
    QApplication::processEvents();
}

bool QtOperationDialogs::Finished(const tOperation& operation, const tOperationOutcome& outcome)
{
    delete m_pWindow;
    m_hwnd = nullptr;
    return OutcomeSummary::IsNeeded(outcome) &&
           OutcomeSummary(OwnerOf(operation.hwnd), operation, outcome).Ask();
}

} // namespace desktop
