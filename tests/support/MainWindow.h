// SPDX-License-Identifier: MIT
#pragma once

#include "ScriptedDesktop.h"
#include "frmBrowse.h"
#include "frmMain.h"
#include "frmProgress.h"

/// A main form just loaded and laid out as designed, with nothing real behind it.
class MainWindow : public testing::Test
{
protected:
    MainWindow()
    {
        platform::UseSystem(desktop.System());
        search::UseForms(main, progress);
        main.lvFiles.ObserveRows(&desktop);
        main.form.Show();
        Size(8085, 5490);
        desktop.sWindows.clear();
    }

    /// Gives the inside of the form a size as the system does: docked controls first.
    void Size(float width, float height, platform::WindowState state = platform::WindowState::Normal)
    {
        main.StatusBar1.SetPlace({0, height - 330, width, 330});
        main.form.TellSize(width, height, state);
    }

    static void Add(platform::ListView& list, std::initializer_list<const char*> texts)
    {
        for (const char* pText : texts) {
            list.ListItems.Add(pText, pText, 1);
        }
    }

    /// The rows of a list, those selected in brackets.
    static std::string Texts(platform::ListView& list)
    {
        std::string sTexts;
        for (std::size_t n = 1; n <= list.ListItems.Count(); ++n) {
            const std::string sText(list.ListItems(n).Text());
            sTexts += list.ListItems(n).Selected() ? "[" + sText + "]" : sText;
        }
        return sTexts;
    }

    std::string Status() { return main.StatusBar1.Panels(1).Text(); }

    /// The rows of both lists and the panels.
    std::string State()
    {
        return Texts(main.lvFolders) + "|" + Texts(main.lvFiles) + "|" + Status() + "|" +
               main.StatusBar1.Panels(2).Text();
    }

    /// Adds the row of a file, which is there.
    void Row(const std::string& sFolder, const std::string& sName, int nMark, const char* pSize = "5")
    {
        desktop.files.files[sFolder + sName];
        auto row = main.lvFiles.ListItems.Add(sFolder + sName, sName, nMark);
        row->SetSubItems(1, pSize);
        row->SetSubItems(3, sFolder);
    }

    /// Selects exactly the rows whose places hold a "+".
    void Select(std::string_view sPattern)
    {
        for (std::size_t n = 0; n < sPattern.size(); ++n) {
            main.lvFiles.ListItems(n + 1).SetSelected(sPattern[n] == '+');
        }
    }

    /// The marks of the rows, those selected behind a "+", the others behind a "-".
    std::string Marks()
    {
        std::string sMarks;
        for (std::size_t n = 1; n <= main.lvFiles.ListItems.Count(); ++n) {
            const auto row = main.lvFiles.ListItems(n);
            sMarks += (row.Selected() ? "+" : "-") + std::to_string(row.SmallIcon());
        }
        return sMarks;
    }

    /// What the desktop was asked for since the last call, a line each.
    std::string Asked() { return std::exchange(desktop.sLog, {}); }

    support::ScriptedDesktop desktop;
    mainwindow::frmMain main;
    dialogs::frmProgress progress;
};
