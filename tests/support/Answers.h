#pragma once

#include <QApplication>
#include <QDialog>
#include <QPushButton>
#include <QTest>
#include <QTimer>
#include <QWindow>
#include <deque>
#include <functional>
#include <gtest/gtest.h>
#include <string>
#include <utility>

namespace support {

/// Answers modal windows: each one expected, in turn, as soon as it is on the screen. What is expected and
/// does not come, and what does not end in time, is a failure.
class Answers : public QObject
{
public:
    using Answer = std::function<void(QDialog&)>;

    Answers()
    {
        m_watchdog.setInterval(20'000);
        connect(&m_watchdog, &QTimer::timeout, this, [] {
            QWidget* const pModal = QApplication::activeModalWidget();
            ADD_FAILURE() << "no answer" << (pModal ? " to " + pModal->objectName().toStdString() : "");
            if (auto* const pDialog = qobject_cast<QDialog*>(pModal)) {
                pDialog->done(QDialog::Rejected);
            }
        });
        m_watchdog.start();
        Look();
    }
    ~Answers() override
    {
        for (const auto& each : m_expected) {
            ADD_FAILURE() << each.first << " did not come";
        }
    }

    /// Expects the window of that object name after those expected before.
    void Expect(const std::string& sName, Answer answer)
    {
        m_expected.emplace_back(sName, std::move(answer));
    }

    /// The same, answered by a click on its button of that object name.
    void Expect(const std::string& sName, const char* pButton)
    {
        Expect(sName, [pButton](QDialog& dialog) { Click(dialog, pButton); });
    }

    static void Click(QDialog& dialog, const char* pButton)
    {
        auto* const pFound = dialog.findChild<QPushButton*>(QLatin1String(pButton));
        ASSERT_NE(pFound, nullptr) << pButton;
        QTest::mouseClick(pFound, Qt::LeftButton);
    }

private:
    void Look()
    {
        // Before the answer, which may wait for the next window.
        QTimer::singleShot(0, this, &Answers::Look);
        auto* const pDialog = qobject_cast<QDialog*>(QApplication::activeModalWidget());
        if (pDialog == nullptr || pDialog->windowHandle() == nullptr ||
            !pDialog->windowHandle()->isExposed() || m_expected.empty() ||
            pDialog->objectName().toStdString() != m_expected.front().first) {
            return;
        }
        const Answer answer = std::move(m_expected.front().second);
        m_expected.pop_front();
        pDialog->activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(pDialog));
        answer(*pDialog);
    }

    std::deque<std::pair<std::string, Answer>> m_expected;
    QTimer m_watchdog;
};

} // namespace support
