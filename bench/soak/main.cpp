// SPDX-License-Identifier: MIT
// Stress test: soak [SECONDS [SEED]] uses the program's own forms at random, off screen if there is no
// display, on random file trees in a temporary folder. After each step it checks that the search found the
// right groups, that no file was lost, and that none was altered. Reports memory use on the way. Exits with 1
// at the first deviation.

#include "../Memory.h"
#include "GroupMarks.h"
#include "PosixFiles.h"
#include "Program.h"
#include "RandomUser.h"
#include "ShellFileOperations.h"
#include "WidgetOf.h"
#include "cGroupRows.h"
#include "frmMain.h"
#include "frmProgress.h"

#include <QTimer>
#include <QWidget>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>

namespace soak {
namespace {

mainwindow::frmMain& MainForm()
{
    return dynamic_cast<mainwindow::frmMain&>(search::frmMain());
}

dialogs::frmProgress& ProgressForm()
{
    return dynamic_cast<dialogs::frmProgress&>(search::frmProgress());
}

/// Runs one visit after the other, in the same instance of the program.
class Visits
{
public:
    Visits(World& world, RandomUser& user) : m_world(world), m_user(user) {}

    /// False at the first deviation, which has been printed.
    bool RunOne()
    {
        m_world.Renew();
        m_main.mnuSearchNew.Click();
        const std::size_t nTimes = 1 + m_world.Random(3);
        for (std::size_t n = 0; n < nTimes && m_bFine; ++n) {
            Resize();
            Search();
            if (m_world.Random(2) == 0) {
                m_world.Disturb();
            }
            Act();
        }
        if (m_world.Random(3) == 0) {
            m_main.mnuSearchClearResults.Click();
            m_main.mnuSearchClearFolders.Click();
        }
        return m_bFine;
    }

    std::size_t nSearches = 0;
    std::size_t nCancelled = 0;
    std::size_t nOperations = 0;

private:
    void Expect(bool bHolds, const char* pFact)
    {
        if (!bHolds) {
            std::printf("departure: %s\n", pFact);
            m_bFine = false;
        }
    }

    void Resize()
    {
        QWidget* const pWindow = desktop::WidgetOf(&m_main.form)->window();
        pWindow->resize(static_cast<int>(200 + m_world.Random(1200)),
                        static_cast<int>(100 + m_world.Random(900)));
    }

    void Search()
    {
        // Random options. A click can also turn a mode off, so what counts is what is checked afterwards.
        platform::MenuItem* const kModes[] = {&m_main.mnuOptionsSearchContent, &m_main.mnuOptionsSearchName,
                                              &m_main.mnuOptionsSearchNameSize};
        kModes[m_world.Random(std::size(kModes))]->Click();
        const Mode mode = m_main.mnuOptionsSearchContent.Checked()    ? Mode::Content
                          : m_main.mnuOptionsSearchNameSize.Checked() ? Mode::NameAndSize
                                                                      : Mode::Name;
        if (m_world.Random(2) == 0) {
            m_main.mnuOptionsHidden.Click();
        }
        const bool bHidden = m_main.mnuOptionsHidden.Checked();
        // One search in four is cancelled, if it takes long enough.
        bool bCancelled = false;
        QTimer cancel;
        cancel.setSingleShot(true);
        QObject::connect(&cancel, &QTimer::timeout, [&bCancelled] {
            bCancelled = true;
            ProgressForm().cmdCancel.Click();
        });
        if (m_world.Random(4) == 0) {
            cancel.start(static_cast<int>(m_world.Random(30)));
        }
        m_main.mnuSearchFind.Click();
        cancel.stop();
        ++nSearches;
        nCancelled += bCancelled ? 1 : 0;
        const Groups found = Listed();
        Expect(m_main.form.Enabled(), "the window takes no input after a search");
        if (!bCancelled) {
            Expect(found == m_world.Duplicates(mode, bHidden), "the groups are not those of the files");
        }
    }

    /// The groups according to the marks of the rows.
    Groups Listed()
    {
        Groups groups;
        std::set<std::string> group;
        auto& rows = m_main.lvFiles.ListItems;
        for (std::size_t n = 1; n <= rows.Count(); ++n) {
            const int nMark = rows(n).SmallIcon();
            Expect((nMark == platform::kMarkFirst) == group.empty(), "a group begins inside another one");
            group.insert(rows(n).Key());
            if (nMark == platform::kMarkLast) {
                groups.insert(std::exchange(group, {}));
            }
        }
        Expect(group.empty(), "the last group has no end");
        return groups;
    }

    void Act()
    {
        for (std::size_t n = 0; n < m_world.Random(5) && m_bFine; ++n) {
            const auto before = m_world.Contents();
            const auto holders = m_world.Holders();
            const auto& rules = m_main.mnuSelect.items;
            const platform::MenuItem& rule = *rules[m_world.Random(rules.size())];
            if (rule.Click) {
                rule.Click();
            }
            platform::MenuItem* const kCommands[] = {&m_main.mnuFileDelete, &m_main.mnuFileMoveTo,
                                                     &m_main.mnuFileCopyTo, &m_main.mnuSearchSaveResults};
            platform::MenuItem* const pCommand = kCommands[m_world.Random(std::size(kCommands))];
            m_user.Forget();
            pCommand->Click();
            ++nOperations;
            CheckContents(before, m_world.Contents(), pCommand == &m_main.mnuFileCopyTo);
            if (pCommand == &m_main.mnuFileDelete) {
                CheckCopies(holders, m_world.Holders());
            }
            CheckMarks(holders);
            Expect(m_main.form.Enabled(), "the window takes no input after an operation");
        }
    }

    void CheckContents(const std::map<std::string, std::size_t>& before,
                       const std::map<std::string, std::size_t>& after, bool bCopied)
    {
        for (const auto& [sContent, nFiles] : before) {
            const auto now = after.find(sContent);
            const std::size_t nNow = now == after.end() ? 0 : now->second;
            Expect(bCopied ? nNow >= nFiles : nNow == nFiles, "a file has been lost, or come from nowhere");
        }
        Expect(after.size() == before.size(), "a file holds what none held before");
    }

    /// Contents that no file outside the trash has any more must be of files that the user was asked about
    /// and agreed to delete.
    void CheckCopies(const std::map<std::string, std::set<std::string>>& before,
                     const std::map<std::string, std::set<std::string>>& after)
    {
        for (const auto& [sContent, paths] : before) {
            const bool bAgreed =
                m_user.bAfterAll || (m_user.consent == desktop::Consent::All &&
                                     std::any_of(paths.begin(), paths.end(), [&](const std::string& sPath) {
                                         return m_user.asked.contains(sPath);
                                     }));
            Expect(after.contains(sContent) || bAgreed, "the last copy of a content has gone unasked");
        }
    }

    /// For the files that existed before the operation.
    void CheckMarks(const std::map<std::string, std::set<std::string>>& before)
    {
        std::set<std::string> there;
        for (const auto& [sContent, paths] : before) {
            there.insert(paths.begin(), paths.end());
        }
        auto& rows = m_main.lvFiles.ListItems;
        for (std::size_t n = 1; n <= rows.Count(); ++n) {
            if (rows(n).Selected() && rows(n).SmallIcon() > platform::kMarkLast &&
                !m_files.PathFound(rows(n).Key())) {
                continue;
            }
            Expect(rows(n).SmallIcon() > platform::kMarkLast || !rows(n).Selected() || m_user.nNotDone > 0 ||
                       !there.contains(rows(n).Key()) || m_files.PathFound(rows(n).Key()),
                   "a selected file has gone and is not marked");
        }
    }

    World& m_world;
    RandomUser& m_user;
    mainwindow::frmMain& m_main = MainForm();
    desktop::PosixFiles m_files;
    bool m_bFine = true;
};

int Run(int argc, char* argv[])
{
    const std::chrono::seconds duration(argc > 1 ? std::atoi(argv[1]) : 600);
    const unsigned nSeed = argc > 2 ? static_cast<unsigned>(std::atoi(argv[2])) : std::random_device()();
    std::printf("seed %u\n", nSeed);
    World world(nSeed);
    world.Renew();

    RandomUser user(world);
    desktop::ShellFileOperations shellFiles(user);
    program::Program program(argc, argv, [&](platform::tSystem& system) {
        system.messages = &user;
        system.dialogs = &user;
        system.shellFiles = &shellFiles;
        system.launcher = &user;
    });

    Visits visits(world, user);
    const auto start = std::chrono::steady_clock::now();
    auto nextWord = start;
    std::size_t nVisits = 0;
    bool bFine = true;
    // Runs inside the program's event loop, as with a real user: some cleanup happens only there.
    QTimer next;
    QObject::connect(&next, &QTimer::timeout, [&] {
        bFine = visits.RunOne();
        ++nVisits;
        const auto now = std::chrono::steady_clock::now();
        if (now >= nextWord) {
            nextWord += duration / 10;
            std::printf("%zu visits, %zu searches (%zu cancelled), %zu operations, %zu KB\n", nVisits,
                        visits.nSearches, visits.nCancelled, visits.nOperations,
                        bench::ResidentBytes() / 1024);
            std::fflush(stdout);
        }
        if (!bFine || now - start >= duration) {
            MainForm().form.UnloadForm();
        }
    });
    next.start(0);
    program.Run();
    std::printf("%s after %zu visits, %zu KB\n", bFine ? "no departure" : "departed", nVisits,
                bench::ResidentBytes() / 1024);
    return bFine ? 0 : 1;
}

} // namespace
} // namespace soak

int main(int argc, char* argv[])
{
    if (std::getenv("DISPLAY") == nullptr && std::getenv("WAYLAND_DISPLAY") == nullptr) {
        setenv("QT_QPA_PLATFORM", "offscreen", 0);
    }
    return soak::Run(argc, argv);
}
