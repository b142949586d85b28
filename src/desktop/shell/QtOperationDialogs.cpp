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

bool QtOperationDialogs::Confirm(const tOperation& operation)
{
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
    m_hwnd = operation.hwnd;
    delete m_pWindow;
    m_pWindow = new ProgressWindow(OwnerOf(operation.hwnd), operation);
    m_sinceStart.start();
}

bool QtOperationDialogs::Progress(const tOperationProgress& progress)
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
