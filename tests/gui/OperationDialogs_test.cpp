// SPDX-License-Identifier: MIT
#include "Answers.h"
#include "Form.h"
#include "InputGate.h"
#include "QtOperationDialogs.h"
#include "ShellFileOperations.h"
#include "WidgetOf.h"

#include <QCheckBox>
#include <QClipboard>
#include <QLabel>
#include <QMessageBox>
#include <QPlainTextEdit>
#include <QProgressBar>
#include <QTimer>
#include <cstdint>
#include <future>
#include <memory>
#include <set>
#include <tuple>

namespace {

using desktop::Consent;
using desktop::FileOperation;
using support::Answers;
using support::Child;
using Choice = desktop::tReplaceAnswer::Choice;

/// What is shown, without the commas: the locale may group no digits.
std::string Plain(QString sText)
{
    return sText.remove(QLatin1Char(',')).toStdString();
}

/// A disabled form over which the user is asked, as while the program works.
class OperationDialogs : public ::testing::Test
{
protected:
    OperationDialogs()
    {
        desktop::EnterWidget(form, &window);
        window.show();
        form.SetEnabled(false);
    }
    ~OperationDialogs() override { desktop::RemoveWidget(form); }

    QDialog* Window()
    {
        auto* const pWindow = window.findChild<QDialog*>(QStringLiteral("operationProgress"));
        return pWindow != nullptr && pWindow->isVisible() ? pWindow : nullptr;
    }

    platform::Form form;
    QWidget window;
    desktop::InputGate gate{form, window};
    desktop::QtOperationDialogs dialogs;
    const desktop::tOperation copy{FileOperation::Copy, 4, 4000, form.hWnd()};
    Answers answers;
};

TEST_F(OperationDialogs, ConfirmTheSetOnce)
{
    const std::tuple<std::size_t, std::int64_t, Qt::Key, const char*, const char*> cases[] = {
        {1, 1, Qt::Key_Return, "/a/%2", "Move \u201c%2\u201d (1 byte) to the trash?"},
        {2, 0, Qt::Key_Escape, "", "Move 2 files (0 bytes) to the trash?"},
        {3, 12'345, Qt::Key_Enter, "", "Move 3 files (12345 bytes / 12.1 KiB) to the trash?"},
        {2, 1024 * 1024 - 1, Qt::Key_Return, "", "Move 2 files (1048575 bytes / 1.0 MiB) to the trash?"},
    };
    for (const auto& [nFiles, cyTotal, key, pOnly, pText] : cases) {
        answers.Expect("confirmOperation", [&, pressed = key, pWanted = pText](QDialog& dialog) {
            EXPECT_EQ(Plain(dynamic_cast<QMessageBox&>(dialog).text()), pWanted);
            EXPECT_EQ(dialog.parentWidget(), &window);
            QTest::keyClick(&dialog, pressed);
        });
        const desktop::tOperation trash{FileOperation::Trash, nFiles, cyTotal, form.hWnd()};
        EXPECT_EQ(dialogs.Confirm({trash, {}, 0, {}, pOnly}),
                  key != Qt::Key_Escape ? Consent::All : Consent::Cancel);
    }
}

TEST_F(OperationDialogs, ConfirmWithWhatThereIsToSay)
{
    const desktop::tOperation trash{FileOperation::Trash, 3, 3, form.hWnd()};
    const desktop::tConcern concern{desktop::Concern::NoOtherCopy, {"/a\nb"}};
    const std::tuple<std::size_t, Answers::Answer, Consent> cases[] = {
        {2, Answers::Press(Qt::Key_Return), Consent::WithCopy},
        {0, Answers::Press(Qt::Key_Return), Consent::Cancel},
        {2, Answers::Click("all"), Consent::All},
        {2, Answers::Press(Qt::Key_Escape), Consent::Cancel},
    };
    for (const auto& [nWithCopy, press, consent] : cases) {
        answers.Expect("confirmOperation", [&answer = press](QDialog& dialog) {
            EXPECT_EQ(Plain(Child<QLabel>(dialog, "text").text()),
                      "Move 3 files (3 bytes) to the trash?\n\n"
                      "\u201ca\\x0Ab\u201d has no other copy that stays.");
            auto& names = Child<QPlainTextEdit>(dialog, "names");
            EXPECT_FALSE(names.isVisible());
            Answers::Click("unfold")(dialog);
            EXPECT_TRUE(names.isVisible() && names.toPlainText().endsWith("stays.\n    /a\\x0Ab\n"));
            answer(dialog);
        });
        EXPECT_EQ(dialogs.Confirm({trash, {}, nWithCopy, {concern}}), consent);
    }
    for (const auto key : {Qt::Key_Return, Qt::Key_Escape}) {
        answers.Expect("askRoom", Answers::Press(key));
        EXPECT_FALSE(dialogs.AskRoom(copy, {80, 16 << 20, 9 << 20}));
    }
}

TEST_F(OperationDialogs, AskBeforeTheyReplace)
{
    const desktop::tFileFacts source{"/from/" + std::string(300, 'd') + "/a\nb.txt", 10, 45'000.5};
    const desktop::tFileFacts target{"/to/a\nb" + std::string(250, 'm'), 9, 45'000.25};
    const std::tuple<Answers::Answer, bool, Choice> cases[] = {
        {Answers::Press(Qt::Key_Return), false, Choice::Skip},
        {Answers::Press(Qt::Key_Escape), false, Choice::Cancel},
        {Answers::Click("replace"), false, Choice::Replace},
        {Answers::Click("replace"), true, Choice::Replace},
        {Answers::Click("skip"), true, Choice::Skip},
    };
    dialogs.Started(copy);
    for (const auto& [press, bForAll, choice] : cases) {
        answers.Expect("replaceQuestion", [&answer = press, bAll = bForAll](QDialog& dialog) {
            std::string sShown, sHeard;
            for (const QLabel* pLabel : dialog.findChildren<QLabel*>()) {
                sShown += pLabel->text().toStdString() + "|";
                sHeard += pLabel->accessibleName().toStdString() + "|";
            }
            for (const char* pFact : {"10 bytes (larger)", "(newer)", "a\\x0Ab", "9 bytes"}) {
                EXPECT_NE(sShown.find(pFact), std::string::npos) << sShown;
                EXPECT_NE(sHeard.find(pFact), std::string::npos) << sHeard;
            }
            EXPECT_EQ(sHeard.find("The files are identical.") != std::string::npos, bAll);
            EXPECT_LE(dialog.width(), 800);
            Child<QCheckBox>(dialog, "forAll").setChecked(bAll);
            answer(dialog);
        });
        const auto answer = dialogs.AskReplace(source, target, bForAll);
        EXPECT_EQ(answer.choice, choice);
        EXPECT_EQ(answer.bForAll, bForAll);
    }
    dialogs.Finished(copy, {});
}

TEST_F(OperationDialogs, ShowProgressAfterAMomentAndLetItBeCancelled)
{
    for (const auto& cancel : {Answers::Click("cancel"), Answers::Press(Qt::Key_Escape)}) {
        dialogs.Started(copy);
        EXPECT_TRUE(dialogs.Progress({"/first", 0, 0}));
        EXPECT_EQ(Window(), nullptr) << "at once";
        const desktop::tOperationProgress half{"/a\nlarge one", 2, 2000};
        while (Window() == nullptr || Child<QProgressBar>(*Window(), "bar").value() != 500) {
            ASSERT_TRUE(dialogs.Progress(half));
        }
        EXPECT_EQ(Child<QLabel>(*Window(), "path").text(), "/a\\x0Alarge one");
        EXPECT_EQ(Plain(Child<QLabel>(*Window(), "count").text()), "2 of 4 files 2.0 KiB of 3.9 KiB");
        // Enter is no cancel. The window stays until the operation has ended.
        QTest::keyClick(Window(), Qt::Key_Return);
        EXPECT_TRUE(dialogs.Progress(half));
        cancel(*Window());
        EXPECT_FALSE(dialogs.Progress(half));
        EXPECT_NE(Window(), nullptr);
        dialogs.Finished(copy, {0, true, {}}); // nothing to say
        EXPECT_EQ(Window(), nullptr);
    }
}

TEST_F(OperationDialogs, NobodyHasToWaitForADiskThatHangs)
{
    desktop::ShellFileOperations shell(dialogs);
    const auto pDisk = std::make_shared<std::promise<void>>();
    const auto hang = [answers = pDisk->get_future().share()](std::size_t) { answers.wait(); };
    QTimer impatience;
    impatience.callOnTimeout([this] {
        if (Window() != nullptr) {
            QTest::keyClick(Window(), Qt::Key_Escape);
        }
    });
    impatience.start(10);
    EXPECT_FALSE(shell.LookAtEach(form.hWnd(), 1, hang));
    EXPECT_EQ(Window(), nullptr) << "it would cover a window in use again";
    EXPECT_EQ(desktop::ThreadsLeftBehind(), 1);
    pDisk->set_value();
    EXPECT_TRUE(QTest::qWaitFor([] { return desktop::ThreadsLeftBehind() == 0; }));
}

TEST_F(OperationDialogs, SayAtTheEndWhatWasNotDone)
{
    const std::vector<desktop::tNotDone> one{{"/a\nb", "The folder is read-only."}};
    const std::string sOne = "The folder is read-only.\n    /a\\x0Ab\n";
    const std::vector<desktop::tNotDone> many{9'000, {"/x", "Why."}};
    const std::tuple<std::size_t, desktop::tOperationOutcome, const char*, std::string> cases[] = {
        {0,
         {8'999, false, one},
         "8999 of 9000 files were moved to the trash.\n1 of 9000 files was not moved to the trash:",
         sOne},
        {1,
         {9'000, false, one},
         "9000 of 9001 files were moved to the trash.\n1 of 9001 files was not moved to the trash:",
         sOne},
        {0, {7, true, {}}, "You cancelled. 7 of 9000 files were moved to the trash before.", ""},
        {0, {0, false, many}, "9000 files were not moved to the trash:", "Why. (9000 files)\n    /x\n"},
        {0,
         {6, false, {}, {}, 2, 1},
         "6 of 9000 files were moved to the trash.\n"
         "1 file was replaced at the destination and put into the trash.\n2 files were skipped.",
         ""},
    };
    for (const auto& [nMissing, outcome, pText, sReasons] : cases) {
        const auto nNotDone = static_cast<int>(outcome.notDone.size());
        answers.Expect("operationSummary", [=, pWanted = pText, &sNotDone = sReasons](QDialog& dialog) {
            EXPECT_EQ(Plain(Child<QLabel>(dialog, "text").text()), pWanted);
            if (!sNotDone.empty()) {
                Answers::Click("copy")(dialog);
                const QString sCopied = QApplication::clipboard()->text();
                EXPECT_TRUE(Plain(sCopied).starts_with(sNotDone)) << pWanted;
                EXPECT_EQ(sCopied.count(QLatin1String("\n    /")), nNotDone);
                EXPECT_TRUE(
                    Plain(Child<QPlainTextEdit>(dialog, "notDone").toPlainText()).starts_with(sNotDone));
            }
            std::set<QString> reached; // by Tab, and round
            for (int n = 0; n < 4; ++n) {
                QTest::keyClick(dialog.focusWidget(), Qt::Key_Tab);
                reached.insert(dialog.focusWidget()->objectName());
            }
            EXPECT_EQ(reached.size(), sNotDone.empty() ? 1U : 3U);
            QTest::keyClick(&dialog, sNotDone.empty() ? Qt::Key_Return : Qt::Key_Escape);
        });
        dialogs.Finished({FileOperation::Trash, 9'000, 1, form.hWnd(), nMissing}, outcome);
    }
    dialogs.Finished(copy, {4, false, {}}); // nothing to say

    for (const char* pButton : {"close", "afterAll"}) {
        answers.Expect("operationSummary", Answers::Click(pButton));
        EXPECT_EQ(dialogs.Finished(copy, {3, false, {{"/x", "Why.", true}}}), pButton[0] == 'a');
    }
}

} // namespace
