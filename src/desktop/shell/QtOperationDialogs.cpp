#include "QtOperationDialogs.h"

#include "OutcomeSummary.h"
#include "Questions.h"
#include "ReplaceQuestion.h"
#include "SizeText.h"

#include <QApplication>

namespace desktop {
namespace {

/// What is done sooner needs no window.
constexpr qint64 kMoment = 500; // ms

tQuestion QuestionOf(const tOperation& operation)
{
    tQuestion question{.sName = QStringLiteral("confirmOperation"), .sTitle = {}, .sText = {}, .sYes = {}};
    QString sText;
    switch (operation.operation) {
    case FileOperation::Move:
        question.sTitle = QStringLiteral("Move Files");
        question.sYes = QStringLiteral("&Move");
        sText = QStringLiteral("Move %1 (%2) to the folder?");
        break;
    case FileOperation::Copy:
        question.sTitle = QStringLiteral("Copy Files");
        question.sYes = QStringLiteral("C&opy");
        sText = QStringLiteral("Copy %1 (%2) to the folder?");
        break;
    default:
        question.sTitle = QStringLiteral("Move to Trash");
        question.sYes = QStringLiteral("&Move to Trash");
        sText = QStringLiteral("Move %1 (%2) to the trash?");
    }
    question.sText = sText.arg(CountText(static_cast<std::int64_t>(operation.nFiles), "file", "files"),
                               FullSize(operation.cyTotal));
    question.bYesAtOnce = true;
    return question;
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
        Open(soFar, ProgressWindow::Phase::Looking);
    }
    tOperationProgress progress;
    progress.nFilesDone = soFar.nFiles;
    progress.cyDone = soFar.cyTotal;
    return GoOn(progress);
}

bool QtOperationDialogs::Confirm(const tOperation& operation)
{
    delete m_pWindow;
    return AskYesNo(OwnerOf(operation.hwnd), QuestionOf(operation));
}

tReplaceAnswer QtOperationDialogs::AskReplace(const tFileFacts& source, const tFileFacts& target)
{
    ProgressWindow* const pWindow = m_pWindow;
    const bool bOverProgress = pWindow != nullptr && pWindow->isVisible();
    ReplaceQuestion question(bOverProgress ? pWindow : OwnerOf(m_hwnd), source, target);
    const tReplaceAnswer answer = question.Answer();
    m_sinceStart.restart(); // the wait was for the user
    return answer;
}

void QtOperationDialogs::Started(const tOperation& operation)
{
    Open(operation, ProgressWindow::Phase::Working);
}

bool QtOperationDialogs::Progress(const tOperationProgress& progress)
{
    return GoOn(progress);
}

/// Makes the window that shows how far it is.
void QtOperationDialogs::Open(const tOperation& operation, ProgressWindow::Phase phase)
{
    m_hwnd = operation.hwnd;
    delete m_pWindow;
    auto* const pWindow = new ProgressWindow(OwnerOf(operation.hwnd), operation, phase);
    m_pWindow = pWindow;
    // The end of the session cancels as the user does.
    QObject::connect(qApp, &QGuiApplication::commitDataRequest, pWindow, [pWindow] { pWindow->reject(); });
    m_sinceStart.start();
}

bool QtOperationDialogs::GoOn(const tOperationProgress& progress)
{
    m_pReached = &progress;
    m_events.DoEvents(1);
    m_pReached = nullptr;
    const ProgressWindow* const pWindow = m_pWindow;
    return pWindow == nullptr || !pWindow->Cancelled();
}

/// Brings to the screen how far the operation has come, and delivers the user's input.
void QtOperationDialogs::Look()
{
    ProgressWindow* const pWindow = m_pWindow;
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

void QtOperationDialogs::Finished(const tOperation& operation, const tOperationOutcome& outcome)
{
    delete m_pWindow;
    m_hwnd = nullptr;
    if (OutcomeSummary::IsNeeded(outcome)) {
        OutcomeSummary(OwnerOf(operation.hwnd), operation, outcome).Ask();
    }
}

} // namespace desktop
