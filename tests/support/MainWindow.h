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
        search::UseForms(main, dialogs::theProgressForm());
        dialogs::UseMainForm(main);
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

    /// The rows of both lists, those selected in brackets, and the panels.
    std::string State()
    {
        std::string sState;
        for (platform::ListView* pList : {&main.lvFolders, &main.lvFiles}) {
            for (std::size_t n = 1; n <= pList->ListItems.Count(); ++n) {
                const std::string sText(pList->ListItems(n).Text());
                sState += pList->ListItems(n).Selected() ? "[" + sText + "]" : sText;
            }
            sState += "|";
        }
        return sState + main.StatusBar1.Panels(1).Text() + "|" + main.StatusBar1.Panels(2).Text();
    }

    /// Adds the row of a file, which is there.
    void Row(const std::string& sFolder, const std::string& sName, int nMark, const char* pSize = "5")
    {
        desktop.files.files[sFolder + sName];
        auto row = main.lvFiles.ListItems.Add(sFolder + sName, sName, nMark);
        ASSERT_TRUE(row);
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

    std::string Selected()
    {
        std::string sPattern;
        for (const bool bSelected : main.lvFiles.ListItems.Selection()) {
            sPattern += bSelected ? '+' : '-';
        }
        return sPattern;
    }

    std::string Marks()
    {
        std::string sMarks;
        for (std::size_t n = 1; n <= main.lvFiles.ListItems.Count(); ++n) {
            sMarks += std::to_string(main.lvFiles.ListItems(n).SmallIcon());
        }
        return sMarks;
    }

    /// What the desktop was asked for since the last call, in order.
    std::string Asked()
    {
        std::string sAsked;
        for (const std::string& sLine : std::exchange(desktop.log, {})) {
            sAsked += sLine + "\n";
        }
        return sAsked;
    }

    support::ScriptedDesktop desktop;
    mainwindow::frmMain main;
};
