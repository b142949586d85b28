#include "MainWindow.h"
#include "mCommon.h"

#include <functional>
#include <set>

namespace {

using platform::MenuItem;

class frmMainMenu : public MainWindow
{
protected:
    /// The captions of the items that are not enabled.
    static std::string Disabled(const std::vector<MenuItem*>& items)
    {
        std::string sFound;
        for (const MenuItem* pItem : items) {
            sFound += (pItem->Enabled() ? "" : pItem->sCaption + ";") + Disabled(pItem->items);
        }
        return sFound;
    }
};

TEST_F(frmMainMenu, HoldsEachItemOnceWithAHandlerIfItIsACommand)
{
    std::set<const MenuItem*> seen;
    const std::function<void(const std::vector<MenuItem*>&)> visit = [&](const auto& items) {
        for (const MenuItem* pItem : items) {
            EXPECT_TRUE(seen.insert(pItem).second) << pItem->sCaption;
            const bool bCommand = pItem->items.empty() && pItem->sCaption != "-";
            EXPECT_EQ(pItem->Click != nullptr, bCommand) << pItem->sCaption;
            visit(pItem->items);
        }
    };
    visit(main.form.menus);
    EXPECT_EQ(seen.size(), 46U);
}

TEST_F(frmMainMenu, EnablesTheFileCommandsAsOfTheLastOperation)
{
    const std::string sNeedRows =
        "Open;Explore;Open with;Select;Move To Folder ..;Copy To Folder ..;Delete;Properties;";
    EXPECT_EQ(Disabled(main.form.menus), sNeedRows);
    Add(main.lvFiles, {"a"});
    EXPECT_EQ(Disabled(main.form.menus), sNeedRows); // until an operation begins or ends
    search::SetWorking(true);
    EXPECT_EQ(Disabled(main.form.menus), "");
    main.mnuSearchClearResults.Click();
    EXPECT_EQ(Disabled(main.form.menus), "");
    search::SetWorking(false);
    EXPECT_EQ(Disabled(main.form.menus), sNeedRows);
}

TEST_F(frmMainMenu, TurnsTheModesAsOneGroup)
{
    MenuItem* const modes[] = {&main.mnuOptionsSearchContent, &main.mnuOptionsSearchName,
                               &main.mnuOptionsSearchNameSize};
    const auto state = [&] {
        std::string sState;
        for (const MenuItem* pItem : modes) {
            sState += pItem->Checked() ? 'x' : '-';
        }
        return sState;
    };
    EXPECT_EQ(state(), "x--");
    const struct {
        std::string sBefore, aAfter[3];
    } table[] = {
        {"x--", {"-xx", "-x-", "--x"}}, {"-x-", {"x--", "x-x", "--x"}}, {"--x", {"x--", "-x-", "xx-"}},
        {"-xx", {"x--", "x-x", "xx-"}}, {"x-x", {"-xx", "-x-", "xx-"}}, {"xx-", {"-xx", "x-x", "--x"}},
    };
    for (const auto& row : table) {
        for (std::size_t nClicked = 0; nClicked < 3; ++nClicked) {
            for (std::size_t n = 0; n < 3; ++n) {
                modes[n]->SetChecked(row.sBefore[n] == 'x');
            }
            modes[nClicked]->Click();
            EXPECT_EQ(state(), row.aAfter[nClicked]) << row.sBefore << " " << nClicked;
        }
    }
    EXPECT_FALSE(main.mnuOptionsHidden.Checked());
    main.mnuOptionsHidden.Click();
    EXPECT_TRUE(main.mnuOptionsHidden.Checked());
}

} // namespace
