#pragma once

#include "Control.h"
#include "FileDialogs.h"
#include "LaunchCode.h"
#include "Launching.h"
#include "MessageBoxes.h"
#include "OperationDialogs.h"
#include "ShellDialogs.h"
#include "World.h"
#include "frmBrowse.h"

#include <cstddef>
#include <string>
#include <string_view>

namespace soak {

/// Answers every question at random.
class RandomUser final : public desktop::OperationDialogs,
                         public platform::FileDialogs,
                         public platform::Launcher,
                         public platform::MessageBoxes,
                         public platform::ShellDialogs
{
public:
    explicit RandomUser(World& world) : m_world(world) {}

    /// What the operation since the last call said of files that it did not deal with.
    std::size_t nNotDone = 0;

    bool Confirm(const desktop::tOperation& /*operation*/) override { return m_world.Random(8) != 0; }
    desktop::tReplaceAnswer AskReplace(const desktop::tFileFacts& /*source*/,
                                       const desktop::tFileFacts& /*target*/) override
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
    void Finished(const desktop::tOperation& /*operation*/,
                  const desktop::tOperationOutcome& outcome) override
    {
        nNotDone = outcome.notDone.size();
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

    /// Adds the tree, and now and then a folder of it: a folder within a listed one changes nothing.
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
    platform::tVolumeLabel VolumeLabel(const std::string& /*sFolder*/) override { return {}; }

private:
    World& m_world;
    std::string m_sFolder;
};

} // namespace soak
