// SPDX-License-Identifier: MIT
#include "OperationProgressWindow.h"

#include "PathLabel.h"
#include "SizeText.h"

#include <QProgressBar>
#include <QVBoxLayout>
#include <algorithm>

namespace desktop {
namespace {

constexpr QSize kSize{420, 0};
constexpr int kFull = 1000; // maximum of the bar

QString TitleOf(FileOperation operation, OperationProgressWindow::Phase phase)
{
    if (phase == OperationProgressWindow::Phase::Looking) {
        return QStringLiteral("Looking at Files");
    }
    switch (operation) {
    case FileOperation::Move:
        return QStringLiteral("Moving Files");
    case FileOperation::Copy:
        return QStringLiteral("Copying Files");
    default:
        return QStringLiteral("Moving to Trash");
    }
}

/// True if the time depends on the number of bytes; moving files to the trash copies no data.
bool CountsBytes(const tOperation& operation)
{
    return operation.operation != FileOperation::Trash && operation.cyTotal > 0;
}

int Part(double dDone, double dTotal)
{
    return dTotal <= 0 ? 0 : static_cast<int>(std::clamp(dDone / dTotal, 0.0, 1.0) * kFull);
}

} // namespace

OperationProgressWindow::OperationProgressWindow(QWidget* pOwner, const tOperation& operation, Phase phase)
    : DialogWindow(pOwner, QStringLiteral("operationProgress"), TitleOf(operation.operation, phase)),
      m_operation(operation), m_phase(phase), m_pPath(new PathLabel), m_pCount(new QLabel),
      m_pBar(new QProgressBar)
{
    m_pPath->setObjectName(QStringLiteral("path"));
    m_pCount->setObjectName(QStringLiteral("count"));
    m_pCount->setTextFormat(Qt::PlainText);
    m_pBar->setObjectName(QStringLiteral("bar"));
    m_pBar->setAccessibleName(QStringLiteral("Progress"));
    m_pBar->setRange(0, phase == Phase::Looking ? 0 : kFull); // a range of 0 shows a busy indicator
    auto* const pButtons = new QDialogButtonBox;
    m_pCancel = AddButton(*pButtons, QStringLiteral("Cancel"), QDialogButtonBox::RejectRole,
                          QStringLiteral("cancel"), [this] { reject(); });
    // An extra Enter meant for the previous question must not cancel.
    m_pCancel->setAutoDefault(false);
    m_pCancel->setFocus(); // so that the focus is visible and announced

    auto* const pLayout = new QVBoxLayout(this);
    pLayout->addWidget(m_pPath);
    pLayout->addWidget(m_pBar);
    pLayout->addWidget(m_pCount);
    pLayout->addStretch();
    pLayout->addWidget(pButtons);
    setWindowModality(Qt::WindowModal);
    ShowProgress({});
    SizeFor(kSize);
}

void OperationProgressWindow::ShowProgress(const tOperationProgress& progress)
{
    m_pPath->ShowPath(progress.sPath);
    if (m_phase == Phase::Looking) {
        const QString sFiles = CountText(static_cast<std::int64_t>(progress.nFilesDone), "file", "files");
        m_pCount->setText(progress.nFilesDone == 0 ? QString()
                          : progress.cyDone == 0
                              ? sFiles // also where sizes are not looked at
                              : QStringLiteral("%1, %2").arg(sFiles, ShortSize(progress.cyDone)));
        return;
    }
    const bool bBytes = CountsBytes(m_operation);
    QString sCount = QStringLiteral("%1 of %2")
                         .arg(NumberText(static_cast<std::int64_t>(progress.nFilesDone)),
                              CountText(static_cast<std::int64_t>(m_operation.nFiles), "file", "files"));
    if (bBytes) {
        sCount +=
            QStringLiteral(", %1 of %2").arg(ShortSize(progress.cyDone), ShortSize(m_operation.cyTotal));
    }
    m_pCount->setText(sCount);
    m_pBar->setValue(
        bBytes ? Part(static_cast<double>(progress.cyDone), static_cast<double>(m_operation.cyTotal))
               : Part(static_cast<double>(progress.nFilesDone), static_cast<double>(m_operation.nFiles)));
}

void OperationProgressWindow::reject()
{
    m_bCancelled = true;
    m_pCancel->setEnabled(false);
    m_pCancel->setText(QStringLiteral("Cancelling"));
}

} // namespace desktop
