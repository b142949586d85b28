// SPDX-License-Identifier: MIT
#pragma once

#include <QApplication>
#include <QDialog>
#include <QPushButton>
#include <QTest>
#include <QTimer>
#include <deque>
#include <functional>
#include <gtest/gtest.h>
#include <string>
#include <utility>

namespace support {

/// What a dialog holds by that object name. Not all of our widgets have what findChild would tell them by.
template <typename T>
T& Child(QDialog& dialog, const char* pName)
{
    T* const pChild = dynamic_cast<T*>(dialog.findChild<QObject*>(QLatin1String(pName)));
    EXPECT_NE(pChild, nullptr) << pName;
    return *pChild;
}

/// Answers windows: each one expected, in turn, as soon as it is on the screen. All of them must come.
class Answers : public QObject
{
public:
    using Answer = std::function<void(QDialog&)>;

    Answers() { Look(); }
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

    /// The answer by a click on the button of that object name.
    static Answer Click(const char* pButton)
    {
        return
            [=](QDialog& dialog) { QTest::mouseClick(&Child<QPushButton>(dialog, pButton), Qt::LeftButton); };
    }
    static Answer Press(Qt::Key key)
    {
        return [=](QDialog& dialog) { QTest::keyClick(&dialog, key); };
    }

private:
    void Look()
    {
        // Before the answer, which may wait for the next window.
        QTimer::singleShot(0, this, &Answers::Look);
        QDialog* pDialog = nullptr;
        for (QWidget* const pWindow : QApplication::topLevelWidgets()) {
            const bool bExpected =
                !m_expected.empty() && pWindow->objectName().toStdString() == m_expected.front().first;
            pDialog = bExpected && pWindow->isVisible() ? qobject_cast<QDialog*>(pWindow) : pDialog;
        }
        const QWidget* const pModal = QApplication::activeModalWidget();
        if (pDialog == nullptr || (pModal != nullptr && pModal != pDialog)) {
            return;
        }
        const Answer answer = std::move(m_expected.front().second);
        m_expected.pop_front();
        pDialog->activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(pDialog));
        answer(*pDialog);
    }

    std::deque<std::pair<std::string, Answer>> m_expected;
};

} // namespace support
