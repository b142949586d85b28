// SPDX-License-Identifier: MIT
#pragma once

#include "Form.h"
#include "PacedEventLoop.h"
#include "PosixFiles.h"
#include "QtWindows.h"
#include "System.h"
#include "UserInterface.h"
#include "WidgetOf.h"

#include <QTest>
#include <gtest/gtest.h>
#include <vector>

namespace support {

/// Forms on the screen, which are taken down at the end.
class OnScreen : public ::testing::Test
{
protected:
    OnScreen()
    {
        QApplication::setLayoutDirection(Qt::RightToLeft);
        desktop::PutOnFace();
        platform::tSystem system;
        system.files = &m_files;
        system.events = &m_events;
        system.screen = &m_windows;
        system.messages = &m_windows;
        system.windows = &m_windows;
        platform::UseSystem(system);
    }

    void Show(platform::Form& form, platform::Form* pOwner = nullptr)
    {
        form.Show(false, pOwner);
        m_shown.push_back(&form);
        ASSERT_TRUE(QTest::qWaitForWindowActive(desktop::WidgetOf(&form)));
    }

    void TearDown() override
    {
        for (platform::Form* pForm : m_shown) {
            pForm->UnloadForm();
        }
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }

private:
    desktop::PosixFiles m_files;
    desktop::QtWindows m_windows;
    desktop::PacedEventLoop m_events{[] { QApplication::processEvents(); }};
    std::vector<platform::Form*> m_shown;
};

} // namespace support
