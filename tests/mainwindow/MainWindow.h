#pragma once

#include "ScriptedDesktop.h"
#include "ScriptedWindows.h"
#include "System.h"
#include "frmBrowse.h"
#include "frmMain.h"
#include "frmProgress.h"

#include <functional>
#include <gtest/gtest.h>

/// A main form just loaded and laid out as designed, with nothing real behind it.
class MainWindow : public testing::Test,
                   private platform::Screen,
                   private platform::MessageBoxes,
                   private platform::ShellDialogs
{
protected:
    MainWindow()
    {
        platform::tSystem system{nullptr, nullptr, this, this, &windows, this};
        desktop.EnterInto(system);
        platform::UseSystem(system);
        search::UseForms(main, dialogs::theProgressForm());
        dialogs::UseMainForm(main);
        main.form.Show();
        Size(8085, 5490);
        windows.sLog.clear();
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

    support::ScriptedWindows windows;
    support::ScriptedDesktop desktop;
    mainwindow::frmMain main;
    std::function<void()> whileBrowsing = [] {}; ///< what the user does before closing the Add Folder window

private:
    void SetMousePointer(platform::MousePointer /*pointer*/) override {}
    void Show(std::string_view sText, platform::MessageIcon /*icon*/) override
    {
        windows.sLog += "; message " + std::string(sText);
    }
    platform::ItemId SHBrowseForFolder(const platform::BROWSEINFO& /*info*/) override
    {
        windows.sLog += "; browse";
        whileBrowsing();
        dialogs::theBrowseForm().form.UnloadForm();
        return 0;
    }
    bool SHGetPathFromIDList(platform::ItemId /*pidl*/, std::string& /*sBuffer*/) override { return false; }
    platform::tVolumeLabel VolumeLabel(const std::string& /*sFolder*/) override { return {}; }
};
