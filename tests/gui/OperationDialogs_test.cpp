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

namespace {

using desktop::FileOperation;
using support::Answers;
using Choice = desktop::tReplaceAnswer::Choice;

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

    desktop::tOperation Operation(FileOperation operation, std::size_t nFiles, std::int64_t cyTotal)
    {
        return {operation, nFiles, cyTotal, form.hWnd()};
    }

    /// The progress window, once `dialogs` shows it.
    QDialog* Window()
    {
        for (QWidget* pWindow : QApplication::topLevelWidgets()) {
            if (pWindow->isVisible() && pWindow->objectName() == QStringLiteral("operationProgress")) {
                return qobject_cast<QDialog*>(pWindow);
            }
        }
        return nullptr;
    }

    platform::Form form;
    QWidget window;
    desktop::InputGate gate{form, window};
    desktop::QtOperationDialogs dialogs;
    Answers answers;
};

TEST_F(OperationDialogs, ConfirmTheSetOnce)
{
    const struct {
        std::size_t nFiles;
        std::int64_t cyTotal;
        Qt::Key key;
        const char* pText;
    } cases[] = {
        {1, 1, Qt::Key_Return, "Move 1 file (1 byte) to the trash?"},
        {2, 0, Qt::Key_Escape, "Move 2 files (0 bytes) to the trash?"},
        {3, 1023, Qt::Key_Enter, "Move 3 files (1,023 bytes) to the trash?"},
        {3, 12'345, Qt::Key_Escape, "Move 3 files (12,345 bytes / 12.1 KB) to the trash?"},
        {2, 1024 * 1024 - 1, Qt::Key_Return, "Move 2 files (1,048,575 bytes / 1.0 MB) to the trash?"},
    };
    for (const auto& each : cases) {
        answers.Expect("confirmOperation", [&](QDialog& dialog) {
            // Where the locale groups no digits, they stand together.
            QString sText = dynamic_cast<QMessageBox&>(dialog).text();
            EXPECT_EQ(sText.remove(QLatin1Char(',')),
                      QString::fromLatin1(each.pText).remove(QLatin1Char(',')));
            EXPECT_EQ(dialog.parentWidget(), &window);
            QTest::keyClick(&dialog, each.key);
        });
        EXPECT_EQ(dialogs.Confirm(Operation(FileOperation::Trash, each.nFiles, each.cyTotal)),
                  each.key != Qt::Key_Escape);
    }
}

TEST_F(OperationDialogs, AskBeforeTheyReplace)
{
    const desktop::tFileFacts source{"/from/" + std::string(300, 'd') + "/a\nb.txt", 10, 45'000.5};
    const desktop::tFileFacts target{"/to/a\nb" + std::string(250, 'm'), 9, 45'000.25};
    const auto press = [](Qt::Key key) { return [key](QDialog& dialog) { QTest::keyClick(&dialog, key); }; };
    const auto click = [](const char* pButton, bool bForAll) {
        return [=](QDialog& dialog) {
            dialog.findChild<QCheckBox*>(QStringLiteral("forAll"))->setChecked(bForAll);
            Answers::Click(dialog, pButton);
        };
    };
    const struct {
        Answers::Answer answer;
        Choice choice;
        bool bForAll;
    } cases[] = {
        {press(Qt::Key_Return), Choice::Skip, false},      {press(Qt::Key_Escape), Choice::Cancel, false},
        {click("replace", false), Choice::Replace, false}, {click("replace", true), Choice::Replace, true},
        {click("skip", true), Choice::Skip, true},         {click("cancel", true), Choice::Cancel, false},
    };
    dialogs.Started(Operation(FileOperation::Copy, 3, 30));
    for (const auto& each : cases) {
        answers.Expect("replaceQuestion", [&](QDialog& dialog) {
            QStringList shown;
            for (const QLabel* pLabel : dialog.findChildren<QLabel*>()) {
                shown << pLabel->text();
            }
            const QString sShown = shown.join(QLatin1Char('|'));
            EXPECT_TRUE(sShown.contains(QStringLiteral("10 bytes (larger)"))) << sShown.toStdString();
            EXPECT_TRUE(sShown.contains(QStringLiteral("(newer)")) &&
                        sShown.contains(QStringLiteral("a\\x0Ab")));
            EXPECT_LE(dialog.width(), 800);
            each.answer(dialog);
        });
        const auto answer = dialogs.AskReplace(source, target);
        EXPECT_EQ(answer.choice, each.choice);
        EXPECT_EQ(answer.bForAll, each.bForAll);
    }
    dialogs.Finished(Operation(FileOperation::Copy, 3, 30), {});
}

TEST_F(OperationDialogs, ShowProgressAfterAMomentAndLetItBeCancelled)
{
    const auto operation = Operation(FileOperation::Copy, 4, 4000);
    for (int nWay = 0; nWay < 3; ++nWay) {
        dialogs.Started(operation);
        EXPECT_TRUE(dialogs.Progress({"/first", 0, 0}));
        EXPECT_EQ(Window(), nullptr) << "at once";
        // One large file.
        std::int64_t cyDone = 0;
        while (Window() == nullptr) {
            ASSERT_TRUE(dialogs.Progress({"/a\nlarge one", 1, ++cyDone}));
        }
        while (Window()->findChild<QProgressBar*>()->value() != 500) {
            ASSERT_TRUE(dialogs.Progress({"/a\nlarge one", 2, 2000}));
        }
        EXPECT_EQ(Window()->findChild<QLabel*>(QStringLiteral("path"))->text(),
                  QStringLiteral("/a\\x0Alarge one"));
        EXPECT_EQ(Window()->findChild<QLabel*>(QStringLiteral("count"))->text().remove(QLatin1Char(',')),
                  QStringLiteral("2 of 4 files 2.0 KB of 3.9 KB"));
        EXPECT_EQ(Window()->parentWidget(), &window);
        // Enter is no cancel; the three ways to say so are. The window stays until the operation has ended.
        QTest::keyClick(Window(), Qt::Key_Return);
        EXPECT_TRUE(dialogs.Progress({"/a\nlarge one", 2, 2000}));
        nWay == 0   ? Answers::Click(*Window(), "cancel")
        : nWay == 1 ? QTest::keyClick(Window(), Qt::Key_Escape)
                    : static_cast<void>(Window()->close());
        EXPECT_FALSE(dialogs.Progress({"/a\nlarge one", 2, 2000}));
        EXPECT_NE(Window(), nullptr);
        dialogs.Finished(operation, {0, true, {}}); // nothing to say
        EXPECT_EQ(Window(), nullptr);
    }
}

TEST_F(OperationDialogs, SayAtTheEndWhatWasNotDone)
{
    const auto operation = Operation(FileOperation::Trash, 9'000, 1);
    dialogs.Finished(operation, {9'000, false, {}});
    const struct {
        desktop::tOperationOutcome outcome;
        const char* pText;
        std::size_t nMissing = 0;
    } cases[] = {
        {{8'999, false, {{"/a\nb", "The folder is read-only."}}},
         "1 of 9000 files was not moved to the trash:"},
        {{7, true, {}}, "You cancelled. 7 of 9000 files were moved to the trash before."},
        {{0, false, std::vector<desktop::tNotDone>(9'000, {"/x", "Why."})},
         "9000 files were not moved to the trash:"},
        {{9'000, false, {{"/a\nb", "The folder is read-only."}}},
         "1 of 9001 files was not moved to the trash:",
         1},
    };
    for (const auto& each : cases) {
        const auto& notDone = each.outcome.notDone;
        answers.Expect("operationSummary", [&](QDialog& dialog) {
            EXPECT_EQ(dialog.findChild<QLabel*>(QStringLiteral("text"))->text().remove(QLatin1Char(',')),
                      QLatin1String(each.pText));
            auto* const pList = dialog.findChild<QPlainTextEdit*>(QStringLiteral("notDone"));
            EXPECT_EQ(pList != nullptr, !notDone.empty());
            if (notDone.size() == 1) {
                EXPECT_EQ(pList->toPlainText(), QStringLiteral("/a\\x0Ab\n    The folder is read-only.\n"));
            } else if (!notDone.empty()) {
                Answers::Click(dialog, "copy");
                EXPECT_EQ(QApplication::clipboard()->text().count(QStringLiteral("/x\n    Why.\n")), 9'000);
            }
            QTest::keyClick(&dialog, notDone.empty() ? Qt::Key_Return : Qt::Key_Escape);
        });
        auto asked = operation;
        asked.nMissing = each.nMissing;
        dialogs.Finished(asked, each.outcome);
    }
}

} // namespace
