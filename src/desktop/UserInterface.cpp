// SPDX-License-Identifier: MIT
#include "UserInterface.h"

#include "OutlineStyle.h"
#include "Pictures.h"
#include "SearchWorkers.h"
#include "StandingWindow.h"
#include "TextScale.h"
#include "Twips.h"

#include <QStyle>

#include <unistd.h>

namespace desktop {

void PutOnFace()
{
    QApplication::setApplicationName(QStringLiteral("tallyfen"));
    QApplication::setDesktopFileName(QStringLiteral("tallyfen"));
    QApplication::setWindowIcon(Picture("tallyfen"));
    QApplication::setQuitOnLastWindowClosed(false);
    // The texts are English, the forms are laid out from the left, and paths read from left to right in any
    // language.
    QApplication::setLayoutDirection(Qt::LeftToRight);
    if (QApplication::style()->name() == QLatin1String(OutlineStyle::kFor)) {
        auto* const pStyle = new OutlineStyle;
        pStyle->setParent(qApp);
        QApplication::setStyle(pStyle);
    }
    UseTextScale(TextScale());
}

UserInterface::UserInterface(int& argc, char* argv[])
    : m_application(argc, argv), m_events([] { QApplication::processEvents(); })
{
    PutOnFace();
}

platform::tSystem UserInterface::System()
{
    return {.files = &m_files,
            .events = &m_events,
            .screen = &m_windows,
            .messages = &m_windows,
            .windows = &m_windows,
            .dialogs = &m_shellDialogs,
            .shellFiles = &m_shellFiles,
            .launcher = &m_launcher,
            .textFiles = &m_textFiles,
            .volumes = &m_volumes};
}

int UserInterface::Run()
{
    const int nResult = m_windows.RunUntilAllDown();
    for (auto standing = StandingWindow::All(); !standing.empty(); standing = StandingWindow::All()) {
        QObject::connect(standing.front(), &QObject::destroyed, qApp, [] { QApplication::exit(); });
        QApplication::exec();
    }
    if (SearchWorkers::Alive() > 0) {
        // A thread hangs in a read, perhaps for ever, so the data it uses must not be destroyed. All windows
        // are closed, and there is nothing to save.
        _exit(nResult);
    }
    return nResult;
}

} // namespace desktop
