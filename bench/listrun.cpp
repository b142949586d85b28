// SPDX-License-Identifier: MIT
// Measures how long the user waits for a list with very many rows: listrun [ROWS]. Each action is timed until
// the list has been repainted. Without a display it runs off screen.

#include "GroupMarks.h"
#include "ListView.h"
#include "ListViewWidget.h"
#include "Memory.h"
#include "PosixVolumes.h"
#include "QtWindows.h"
#include "System.h"
#include "Texts.h"
#include "cGroupRows.h"
#include "mSelect.h"

#include <QApplication>
#include <QScrollBar>
#include <QTest>
#include <cstdint>

#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <functional>
#include <string>
#include <utility>

namespace {

constexpr std::size_t kGroup = 4;
constexpr std::size_t kFilesInFolder = 30;

std::string Name(std::size_t n)
{
    return "photo of a summer day " + std::to_string(n) + ".jpeg";
}

/// Adds the rows as a search does; returns the total length of their names.
std::size_t Fill(platform::ListView& list, std::size_t nRows)
{
    std::size_t nNames = 0;
    for (std::size_t n = 0; n < nRows; ++n) {
        const std::string sName = Name(n);
        const std::string sPath =
            "/home/somebody/Pictures/by year/album number " + std::to_string(n / kFilesInFolder) + "/";
        nNames += sName.size();
        const std::size_t nInGroup = n % kGroup;
        auto item = *list.ListItems.Add(sPath + sName, sName,
                                        nInGroup == 0 ? platform::kMarkFirst : platform::kMarkMiddle);
        item.SetSubItems(search::kSizeColumn,
                         platform::FormatNumber(static_cast<std::int64_t>(n * 7919 % 9'999'999)));
        constexpr double kDay = 40'000; // in 2009
        item.SetSubItems(search::kDateColumn, platform::FormatDateTime(kDay + static_cast<double>(n) / 97));
        item.SetSubItems(search::kFolderColumn, sPath);
        if (nInGroup == kGroup - 1) {
            item.SetSmallIcon(platform::kMarkLast);
        }
    }
    return nNames;
}

void Report(QWidget& view, const char* pAction, const std::function<void()>& act)
{
    const auto start = std::chrono::steady_clock::now();
    act();
    QApplication::processEvents();
    view.repaint();
    const std::chrono::duration<double, std::milli> took = std::chrono::steady_clock::now() - start;
    std::printf("%-36s %8.1f ms\n", pAction, took.count());
}

/// Clicks the middle of the first or the last visible row.
void Click(QTreeView& view, bool bLast, Qt::KeyboardModifiers modifiers)
{
    const int nRow = view.visualRect(view.indexAt({2, 2})).height();
    const int nInSight = view.viewport()->height() / nRow;
    const int nY = nRow / 2 + (bLast ? (nInSight - 1) * nRow : 0);
    QTest::mouseClick(view.viewport(), Qt::LeftButton, modifiers, {20, nY});
}

void SetSelected(platform::ListView& list, const std::function<bool(const platform::ListItem&)>& rule)
{
    const std::size_t nCount = list.ListItems.Count();
    for (std::size_t n = 1; n <= nCount; ++n) {
        auto item = list.ListItems(n);
        item.SetSelected(rule(item));
    }
}

void Run(std::size_t nRows)
{
    platform::Form form;
    platform::ListView list(form);
    list.MultiSelect = true;
    list.Message(platform::ListView::LVM_SETEXTENDEDLISTVIEWSTYLE, 0,
                 platform::ListView::LVS_EX_FULLROWSELECT);
    list.AddColumn("Name", platform::Alignment::Left, 4000);
    list.AddColumn("Size", platform::Alignment::Right, 1000);
    list.AddColumn("Date", platform::Alignment::Left, 2000);
    list.AddColumn("Path", platform::Alignment::Left, 6000);
    desktop::ListViewWidget view(list, nullptr);
    view.resize(1000, 800);

    const std::size_t nBefore = bench::ResidentBytes();
    std::size_t nNames = 0;
    Report(*view.viewport(), "fill and show", [&] {
        nNames = Fill(list, nRows);
        view.show();
    });
    QScrollBar& bar = *view.verticalScrollBar();
    Report(*view.viewport(), "scroll to the end", [&] { bar.setValue(bar.maximum()); });
    Report(*view.viewport(), "select every second row by handler",
           [&] { SetSelected(list, [](const auto& item) { return item.Index() % 2 == 0; }); });
    Report(*view.viewport(), "Ctrl+click", [&] { Click(view, false, Qt::ControlModifier); });
    bar.setValue(0);
    Click(view, false, Qt::NoModifier);
    bar.setValue(bar.maximum());
    Report(*view.viewport(), "Shift+click over all", [&] { Click(view, true, Qt::ShiftModifier); });
    Report(*view.viewport(), "a key from end to end", [&] { QTest::keyClick(&view, Qt::Key_Home); });
    const std::pair<const char*, void (*)(platform::ListView&)> kCommands[] = {
        {"Duplicated Files", results::SelectDuplicatedFiles},
        {"Empty Files", results::SelectEmptyFiles},
        {"Same Drive", results::SelectSameDrive},
        {"Same Path", results::SelectSamePath},
        {"All", results::SelectAll},
        {"Invert", results::SelectInvert},
    };
    for (const auto& [pName, command] : kCommands) {
        Report(*view.viewport(), pName, [&, run = command] { run(list); });
    }
    Report(*view.viewport(), "a letter that no name begins with", [&] { QTest::keyClick(&view, Qt::Key_Z); });
    const std::size_t nAfter = bench::ResidentBytes();
    Report(*view.viewport(), "clear", [&] { list.ListItems.Clear(); });
    std::printf("%-36s %8.1f\n", "bytes a row, above the names",
                static_cast<double>(nAfter - nBefore - nNames) / static_cast<double>(nRows));
}

} // namespace

int main(int argc, char** argv)
{
    if (std::getenv("DISPLAY") == nullptr && std::getenv("WAYLAND_DISPLAY") == nullptr) {
        qputenv("QT_QPA_PLATFORM", "offscreen");
    }
    const QApplication application(argc, argv);
    const std::size_t nRows = argc > 1 ? std::strtoull(argv[1], nullptr, 10) : 1'000'000;
    if (nRows == 0) {
        std::fprintf(stderr, "Usage: listrun [ROWS]\n");
        return 2;
    }
    desktop::QtWindows windows;
    desktop::PosixVolumes volumes;
    platform::tSystem system;
    system.windows = &windows;
    system.volumes = &volumes;
    platform::UseSystem(system);
    Run(nRows);
    return 0;
}
