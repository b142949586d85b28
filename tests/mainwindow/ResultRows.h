#pragma once

#include "MainWindow.h"

#include <string>

/// A main form with result rows, and a desktop that answers as a test says.
class ResultRows : public MainWindow
{
protected:
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
};
