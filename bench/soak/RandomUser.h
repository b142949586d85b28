// SPDX-License-Identifier: MIT
#pragma once

#include "LaunchCode.h"
#include "Launching.h"
#include "MessageBoxes.h"
#include "NativeWindow.h"
#include "OperationDialogs.h"
#include "ShellDialogs.h"
#include "World.h"
#include "frmBrowse.h"

#include <algorithm>
#include <cstddef>
#include <set>
#include <string>
#include <string_view>

namespace soak {

/// Answers all questions at random.
class RandomUser final : public desktop::OperationDialogs,
                         public platform::Launcher,
                         public platform::MessageBoxes,
                         public platform::ShellDialogs
{
public:
    explicit RandomUser(World& world) : m_world(world) {}

    std::size_t nNotDone = 0; ///< files that the last operation did not process
    bool bAfterAll = false;   ///< the spared files have gone to the trash after all
    desktop::Consent consent = desktop::Consent::Cancel;
    std::set<std::string> asked; ///< the files for which there were concerns before the answer

    /// Resets this for another operation.
    void Forget()
    {
        nNotDone = 0;
        bAfterAll = false;
        consent = desktop::Consent::Cancel;
        asked.clear();
    }

    desktop::Consent Confirm(const desktop::tConfirmation& confirmation) override
    {
        for (const desktop::tConcern& concern : confirmation.concerns) {
            if (concern.concern != desktop::Concern::SameFileStays) {
                asked.insert(concern.paths.begin(), concern.paths.end());
            }
        }
        using desktop::Consent;
        constexpr Consent kAnswers[] = {Consent::WithCopy, Consent::WithCopy, Consent::WithCopy,
                                        Consent::All,      Consent::All,      Consent::Cancel};
        consent = kAnswers[m_world.Random(std::size(kAnswers))];
        return consent;
    }
    bool AskRoom(const desktop::tOperation& /*operation*/, const desktop::tRoom& /*room*/) override
    {
        return m_world.Random(2) == 0;
    }
    desktop::tReplaceAnswer AskReplace(const desktop::tFileFacts& /*source*/,
                                       const desktop::tFileFacts& /*target*/, bool /*bIdentical*/) override
    {
        using Choice = desktop::tReplaceAnswer::Choice;
        constexpr Choice kChoices[] = {Choice::Skip, Choice::Skip, Choice::Replace, Choice::Replace,
                                       Choice::Cancel};
        return {kChoices[m_world.Random(std::size(kChoices))], m_world.Random(4) == 0};
    }
    void Started(const desktop::tOperation& /*operation*/) override {}
    bool Progress(const desktop::tOperationProgress& /*progress*/) override
    {
        return m_world.Random(200) != 0;
    }
    bool Finished(const desktop::tOperation& /*operation*/,
                  const desktop::tOperationOutcome& outcome) override
    {
        nNotDone += outcome.notDone.size();
        const bool bSpared = std::any_of(outcome.notDone.begin(), outcome.notDone.end(),
                                         [](const auto& each) { return each.bSpared; });
        const bool bNow = bSpared && m_world.Random(3) == 0;
        bAfterAll = bAfterAll || bNow;
        return bNow;
    }

    platform::ItemId SHBrowseForFolderA(const platform::BROWSEINFO& /*info*/) override
    {
        m_sFolder = m_world.SomeFolder();
        return m_world.Random(10) == 0 ? 0 : 1;
    }
    bool SHGetPathFromIDListA(platform::ItemId pidl, std::string& sBuffer) override
    {
        return SHGetPathFromIDList(pidl, sBuffer);
    }
    void CoTaskMemFree(platform::ItemId /*pidl*/) override {}
    bool GetSaveFileNameA(platform::OPENFILENAME& request) override
    {
        request.lpstrFile = m_world.Report() + '\0';
        return true;
    }

    long ShellExecuteA(platform::WindowHandle /*hwnd*/, const std::string& /*sVerb*/,
                       const std::string& /*sFile*/, const std::string& /*sParameters*/,
                       const std::string& /*sDirectory*/, int /*nShowCmd*/) override
    {
        return desktop::kStarted;
    }
    bool ShellExecuteExA(const platform::SHELLEXECUTEINFO& /*info*/) override { return true; }

    void Show(std::string_view /*sText*/, platform::MessageIcon /*icon*/) override {}

    /// Adds the tree, and sometimes also a folder inside it, which must not change the result.
    platform::ItemId SHBrowseForFolder(const platform::BROWSEINFO& info) override
    {
        for (std::size_t n = 0; n < 1 + m_world.Random(2); ++n) {
            m_sFolder = n == 0 ? m_world.Tree() : m_world.SomeFolder();
            if (m_sFolder.starts_with(m_world.Tree()) && m_sFolder.find("/.") == std::string::npos) {
                info.lpfn(nullptr, platform::BFFM_SELCHANGED, 1, info.lParam);
                dialogs::theBrowseForm().cmdAdd.Click();
            }
        }
        dialogs::theBrowseForm().form.UnloadForm();
        return 0;
    }
    bool SHGetPathFromIDList(platform::ItemId pidl, std::string& sBuffer) override
    {
        if (pidl != 0) {
            sBuffer.replace(0, m_sFolder.size() + 1, m_sFolder + '\0');
        }
        return pidl != 0;
    }

private:
    World& m_world;
    std::string m_sFolder;
};

} // namespace soak
