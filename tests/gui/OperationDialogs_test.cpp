// SPDX-License-Identifier: MIT
#include "Answers.h"
#include "Form.h"
#include "InputGate.h"
#include "QtOperationDialogs.h"
#include "WidgetOf.h"

#include <QCheckBox>
#include <QClipboard>
#include <QLabel>
#include <QMessageBox>
#include <QPlainTextEdit>
#include <QProgressBar>
#include <QPushButton>
#include <cstdint>

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

    /// The progress window, if it shows.
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
    const struct {
        std::size_t nFiles;
        std::int64_t cyTotal;
        Qt::Key key;
        const char* pText;
        const char* pOnly = "";
    } cases[] = {
        {1, 1, Qt::Key_Return, "Move \u201c%2\u201d (1 byte) to the trash?", "/a/%2"},
        {2, 0, Qt::Key_Escape, "Move 2 files (0 bytes) to the trash?"},
        {3, 1023, Qt::Key_Enter, "Move 3 files (1023 bytes) to the trash?"},
        {3, 12'345, Qt::Key_Escape, "Move 3 files (12345 bytes / 12.1 KiB) to the trash?"},
        {2, 1024 * 1024 - 1, Qt::Key_Return, "Move 2 files (1048575 bytes / 1.0 MiB) to the trash?"},
    };
    for (const auto& each : cases) {
        answers.Expect("confirmOperation", [&](QDialog& dialog) {
            EXPECT_EQ(Plain(dynamic_cast<QMessageBox&>(dialog).text()), each.pText);
            EXPECT_EQ(dialog.parentWidget(), &window);
            QTest::keyClick(&dialog, each.key);
        });
        const auto consent = dialogs.Confirm(
            {{FileOperation::Trash, each.nFiles, each.cyTotal, form.hWnd()}, {}, 0, {}, each.pOnly});
        EXPECT_EQ(consent, each.key != Qt::Key_Escape ? Consent::All : Consent::Cancel);
    }
}

TEST_F(OperationDialogs, ConfirmWithWhatThereIsToSay)
{
    const desktop::tOperation trash{FileOperation::Trash, 3, 3, form.hWnd()};
    const desktop::tConcern concern{desktop::Concern::NoOtherCopy, {"/a\nb"}};
    const struct {
        std::size_t nWithCopy;
        Answers::Answer answer;
        Consent consent;
    } cases[] = {
        {2, Answers::Press(Qt::Key_Return), Consent::WithCopy},
        {0, Answers::Press(Qt::Key_Return), Consent::Cancel},
        {2, Answers::Click("all"), Consent::All},
        {2, Answers::Press(Qt::Key_Escape), Consent::Cancel},
    };
    for (const auto& each : cases) {
        answers.Expect("confirmOperation", [&](QDialog& dialog) {
            EXPECT_EQ(Plain(Child<QLabel>(dialog, "text").text()),
                      "Move 3 files (3 bytes) to the trash?\n\n"
                      "\u201ca\\x0Ab\u201d has no other copy that stays.");
            auto& names = Child<QPlainTextEdit>(dialog, "names");
            EXPECT_FALSE(names.isVisible());
            Answers::Click("unfold")(dialog);
            EXPECT_TRUE(names.isVisible());
            EXPECT_TRUE(Plain(names.toPlainText()).ends_with("stays.\n    /a\\x0Ab\n"));
            each.answer(dialog);
        });
        EXPECT_EQ(dialogs.Confirm({trash, {}, each.nWithCopy, {concern}}), each.consent);
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
    const struct {
        Answers::Answer answer;
        bool bForAll;
        Choice choice;
    } cases[] = {
        {Answers::Press(Qt::Key_Return), false, Choice::Skip},
        {Answers::Press(Qt::Key_Escape), false, Choice::Cancel},
        {Answers::Click("replace"), false, Choice::Replace},
        {Answers::Click("replace"), true, Choice::Replace},
        {Answers::Click("skip"), true, Choice::Skip},
    };
    dialogs.Started(copy);
    for (const auto& each : cases) {
        answers.Expect("replaceQuestion", [&](QDialog& dialog) {
            std::string sShown;
            std::string sHeard;
            for (const QLabel* pLabel : dialog.findChildren<QLabel*>()) {
                sShown += pLabel->text().toStdString() + "|";
                sHeard += pLabel->accessibleName().toStdString() + "|";
            }
            for (const char* pFact : {"10 bytes (larger)", "(newer)", "a\\x0Ab", "9 bytes"}) {
                EXPECT_NE(sShown.find(pFact), std::string::npos) << sShown;
                EXPECT_NE(sHeard.find(pFact), std::string::npos) << sHeard;
            }
            EXPECT_EQ(sHeard.find("The files are identical.") != std::string::npos, each.bForAll);
            EXPECT_LE(dialog.width(), 800);
            Child<QCheckBox>(dialog, "forAll").setChecked(each.bForAll);
            each.answer(dialog);
        });
        const auto answer = dialogs.AskReplace(source, target, each.bForAll);
        EXPECT_EQ(answer.choice, each.choice);
        EXPECT_EQ(answer.bForAll, each.bForAll);
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

TEST_F(OperationDialogs, SayAtTheEndWhatWasNotDone)
{
    const std::vector<desktop::tNotDone> one{{"/a\nb", "The folder is read-only."}};
    const struct {
        std::size_t nMissing;
        desktop::tOperationOutcome outcome;
        const char* pText;
    } cases[] = {
        {0,
         {8'999, false, one},
         "8999 of 9000 files were moved to the trash.\n1 of 9000 files was not moved to the trash:"},
        {1,
         {9'000, false, one},
         "9000 of 9001 files were moved to the trash.\n1 of 9001 files was not moved to the trash:"},
        {0, {7, true, {}}, "You cancelled. 7 of 9000 files were moved to the trash before."},
        {0, {0, false, {9'000, {"/x", "Why."}}}, "9000 files were not moved to the trash:"},
        {0,
         {6, false, {}, {}, 2, 1},
         "6 of 9000 files were moved to the trash.\n"
         "1 file was replaced at the destination and put into the trash.\n2 files were skipped."},
    };
    for (const auto& each : cases) {
        const std::size_t nNotDone = each.outcome.notDone.size();
        answers.Expect("operationSummary", [&](QDialog& dialog) {
            EXPECT_EQ(Plain(Child<QLabel>(dialog, "text").text()), each.pText);
            if (nNotDone == 1) {
                EXPECT_EQ(Child<QPlainTextEdit>(dialog, "notDone").toPlainText(),
                          "The folder is read-only.\n    /a\\x0Ab\n");
            } else if (nNotDone > 1) {
                Answers::Click("copy")(dialog);
                EXPECT_EQ(QApplication::clipboard()->text().count(QStringLiteral("    /x\n")), 9'000);
                EXPECT_TRUE(
                    Plain(QApplication::clipboard()->text()).starts_with("Why. (9000 files)\n    /x"));
            }
            QTest::keyClick(&dialog, nNotDone == 0 ? Qt::Key_Return : Qt::Key_Escape);
        });
        dialogs.Finished({FileOperation::Trash, 9'000, 1, form.hWnd(), each.nMissing}, each.outcome);
    }
    dialogs.Finished(copy, {4, false, {}}); // nothing to say

    for (const char* pButton : {"close", "afterAll"}) {
        answers.Expect("operationSummary", Answers::Click(pButton));
        EXPECT_EQ(dialogs.Finished(copy, {3, false, {{"/x", "Why.", true}}}), pButton[0] == 'a');
    }
}

} // namespace
