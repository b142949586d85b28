// SPDX-License-Identifier: MIT
// Measures one figure of the program in its real windows, off screen unless QT_QPA_PLATFORM says otherwise:
//   windowrun --search FOLDER   duration of a search by content from the key press to its end, how often the
//                               progress window was painted meanwhile, and the longest time without event
//                               processing
//   windowrun --end FOLDER      time from the last comparison until the result list has been painted
//   windowrun --cancel FOLDER [COMMAND]
//                               time from a click on Cancel, at random moments of the search, until the main
//                               window is usable; the shell runs COMMAND before each search
//   windowrun --start           the time, in seconds since 1970, at which the window had been painted
// bench/windowfigures combines them in a report.

#include "Main.h"
#include "PacedEventLoop.h"
#include "Program.h"
#include "WidgetOf.h"
#include "frmMain.h"
#include "frmProgress.h"

#include <QApplication>
#include <QEvent>
#include <QTest>
#include <QTreeView>
#include <cstdint>

#include <algorithm>
#include <atomic>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <random>
#include <string_view>
#include <thread>
#include <vector>

namespace {

mainwindow::frmMain& MainForm()
{
    return dynamic_cast<mainwindow::frmMain&>(search::frmMain());
}

dialogs::frmProgress& ProgressForm()
{
    return dynamic_cast<dialogs::frmProgress&>(search::frmProgress());
}

using Clock = std::chrono::steady_clock;
using desktop::WidgetOf;

double Seconds(Clock::duration duration)
{
    return std::chrono::duration<double>(duration).count();
}

/// The program's own event loop, which also records roughly when it was called last, using a cheap clock.
class NotedEvents final : public platform::EventLoop
{
public:
    void DoEvents(std::int64_t nSteps) override
    {
        m_events.DoEvents(nSteps);
        clock_gettime(CLOCK_MONOTONIC_COARSE, &m_last);
    }

    [[nodiscard]] Clock::time_point Last() const
    {
        return Clock::time_point(std::chrono::seconds(m_last.tv_sec) +
                                 std::chrono::nanoseconds(m_last.tv_nsec));
    }

private:
    desktop::PacedEventLoop m_events{[] { QApplication::processEvents(); }};
    timespec m_last{};
};

/// Counts paint events of all windows but the main one, and records when the result list is painted.
class Paints final : public QObject
{
public:
    Paints() { qApp->installEventFilter(this); }

    bool eventFilter(QObject* pWatched, QEvent* pEvent) override
    {
        if (pEvent->type() == QEvent::UpdateRequest && pWatched->isWidgetType() &&
            pWatched == WidgetOf(&ProgressForm().form)) {
            ++nOfProgress;
        }
        if (pEvent->type() == QEvent::Paint && pWatched == pList) {
            bListPainted = true;
        }
        return false;
    }

    const QObject* pList = nullptr;
    int nOfProgress = 0;
    bool bListPainted = false;
};

/// Clicks Cancel when an event from another thread arrives.
class Click final : public QObject
{
public:
    bool event(QEvent* pEvent) override
    {
        QWidget* const pCancel = WidgetOf(&ProgressForm().cmdCancel);
        if (pEvent->type() == QEvent::User && pCancel != nullptr) {
            QTest::mouseClick(pCancel, Qt::LeftButton);
            bMet = true;
        }
        return QObject::event(pEvent);
    }

    bool bMet = false; ///< the search was still running
};

/// Sends events from another thread every few milliseconds, and records the longest response time.
class Knocks final : public QObject
{
public:
    Knocks()
    {
        m_visitor = std::jthread([this](const std::stop_token& stop) {
            while (!stop.stop_requested()) {
                if (!m_bKnocked.exchange(true)) {
                    m_when = Clock::now();
                    QCoreApplication::postEvent(this, new QEvent(QEvent::User));
                }
                std::this_thread::sleep_for(std::chrono::milliseconds(5));
            }
        });
    }

    bool event(QEvent* pEvent) override
    {
        if (pEvent->type() == QEvent::User) {
            longest = std::max(longest, Clock::now() - m_when);
            m_bKnocked = false;
        }
        return QObject::event(pEvent);
    }

    Clock::duration longest{};

private:
    std::atomic<bool> m_bKnocked = false;
    Clock::time_point m_when;
    std::jthread m_visitor; ///< the last member, so that it is destroyed first
};

void ShowWindow()
{
    mainwindow::Main();
    QWidget* const pWindow = WidgetOf(&MainForm().form);
    if (!QTest::qWaitForWindowExposed(pWindow)) {
        std::fprintf(stderr, "windowrun: the window does not come up\n");
        std::exit(1);
    }
    QApplication::processEvents();
}

/// Searches as if by the shortcut key; returns the duration.
Clock::duration Search()
{
    const auto began = Clock::now();
    QTest::keyClick(WidgetOf(&MainForm().form), Qt::Key_F3);
    return Clock::now() - began;
}

void PaintList(Paints& paints)
{
    paints.bListPainted = false;
    while (!paints.bListPainted) {
        QApplication::processEvents();
    }
}

void MeasureSearch(Paints& paints)
{
    const Knocks knocks;
    const double dSeconds = Seconds(Search());
    QApplication::processEvents();
    std::printf("search=%.3f repaints_per_second=%.1f rows=%zu longest_ms=%.1f\n", dSeconds,
                paints.nOfProgress / dSeconds, MainForm().lvFiles.ListItems.Count(),
                1000 * Seconds(knocks.longest));
}

void MeasureEnd(Paints& paints, const NotedEvents& events)
{
    Search();
    PaintList(paints);
    std::printf("end=%.3f\n", Seconds(Clock::now() - events.Last()));
}

void RunInShell(const char* pCommand)
{
    if (std::system(pCommand) != 0) {
        std::fprintf(stderr, "windowrun: the command fails\n");
        std::exit(1);
    }
}

void MeasureCancel(Paints& paints, const char* pCommand)
{
    constexpr std::size_t kMoments = 100;
    RunInShell(pCommand);
    const auto whole = Search();
    PaintList(paints);
    std::vector<double> waits;
    std::mt19937 random(1);
    for (std::size_t n = 0; n < 4 * kMoments && waits.size() < kMoments; ++n) {
        const auto moment = whole * (random() % 1000) / 1000;
        Clock::time_point clicked;
        RunInShell(pCommand);
        Click click;
        // The click comes from another thread, whatever the program is doing.
        std::thread visitor([&, began = Clock::now()] {
            std::this_thread::sleep_until(began + moment);
            clicked = Clock::now();
            QCoreApplication::postEvent(&click, new QEvent(QEvent::User));
        });
        Search();
        PaintList(paints);
        const auto usable = Clock::now();
        visitor.join();
        QApplication::processEvents();
        if (click.bMet) {
            waits.push_back(1000 * Seconds(usable - clicked));
        }
    }
    std::sort(waits.begin(), waits.end());
    std::printf("cancels=%zu median_ms=%.1f worst_ms=%.1f\n", waits.size(), waits.at(waits.size() / 2),
                waits.back());
}

} // namespace

int main(int argc, char** argv)
{
    setenv("QT_QPA_PLATFORM", "offscreen", 0);
    const std::string_view sMode = argc > 1 ? argv[1] : "";
    const std::vector<std::string_view> modes = {"--search", "--end", "--cancel"};
    const bool bSearches = std::find(modes.begin(), modes.end(), sMode) != modes.end();
    const bool bCommand = sMode == "--cancel" && argc == 4;
    if ((argc != (bSearches ? 3 : 2) && !bCommand) || (!bSearches && sMode != "--start")) {
        std::fprintf(
            stderr,
            "usage: windowrun --search FOLDER | --end FOLDER | --cancel FOLDER [COMMAND] | --start\n");
        return 64;
    }
    NotedEvents events;
    const program::Program program(argc, argv, [&](platform::tSystem& system) {
        if (sMode == "--end") {
            system.events = &events;
        }
    });
    Paints paints;
    ShowWindow();
    if (sMode == "--start") {
        const auto now = std::chrono::system_clock::now().time_since_epoch();
        std::printf("%.6f\n", std::chrono::duration<double>(now).count());
        return 0;
    }
    auto& main = MainForm();
    main.mnuOptionsHidden.SetChecked(true);
    main.lvFolders.ListItems.Add(argv[2], argv[2], 1);
    paints.pList = dynamic_cast<QTreeView*>(WidgetOf(&main.lvFiles))->viewport();
    if (sMode == "--search") {
        MeasureSearch(paints);
    } else if (sMode == "--end") {
        MeasureEnd(paints, events);
    } else {
        MeasureCancel(paints, bCommand ? argv[3] : ":");
    }
    return 0;
}
