// SPDX-License-Identifier: MIT
#pragma once

#include "Control.h"
#include "EventLoop.h"
#include "Form.h"
#include "FormMembers.h"
#include "Launches.h"
#include "Menu.h"
#include "SampleTree.h"
#include "frmMain.h"
#include "frmProgress.h"

#include <QString>
#include <Qt>
#include <cstdint>
#include <fstream>
#include <functional>
#include <ostream>
#include <set>
#include <string>
#include <string_view>
#include <vector>

class QWidget;

namespace tour {

/// The environment of a scene: the program's forms on screen, a file tree, and functions to act as a visitor.
/// Actions are sent to the widgets as mouse and keyboard events.
class Stage final : private platform::EventLoop
{
public:
    /// Pictures and the text are written to folder `sFolder`, which must exist.
    Stage(SampleTree& sampleTree, Launches& programs, std::string sFolder);

    SampleTree& tree;
    Launches& launches;
    mainwindow::frmMain& main = dynamic_cast<mainwindow::frmMain&>(search::frmMain());
    dialogs::frmProgress& progress = dynamic_cast<dialogs::frmProgress&>(search::frmProgress());

    /// The event loop for the program: unlike the program's own it processes all input at each step, so that
    /// a scene can act at exactly the step it waits for.
    platform::EventLoop& Events() { return *this; }

    /// Subsequent messages belong to this scene.
    void Enter(const char* pScene);
    [[nodiscard]] bool Failed() const { return m_bFailed; }

    /// Reports `sFact` as failed unless `bHolds`. The scene continues.
    void Expect(bool bHolds, std::string_view sFact);
    void ExpectEqual(const std::string& sGot, const std::string& sWanted, std::string_view sWhat);

    /// Runs the event loop until `isTrue`; reports `sFact` as failed on timeout.
    void WaitFor(const std::function<bool()>& isTrue, std::string_view sFact);

    /// Clicks the middle of a control or widget.
    void Click(const platform::Control& control, Qt::MouseButton button = Qt::LeftButton);
    void Click(QWidget* pWidget);

    /// Clicks the toolbar button with that caption.
    void Tool(std::string_view sCaption);

    /// Opens a menu of the menu bar, or a submenu of the open menu.
    void Open(const platform::MenuItem& menu);

    /// Clicks an item of the open menu.
    void Choose(const platform::MenuItem& item);

    /// Sends a key to the widget that has the focus.
    void Press(Qt::Key key, Qt::KeyboardModifiers held = {});
    void Type(std::string_view sText);

    /// Runs `act`, which returns only when the window it opens has been closed. Runs `talk` once `isUp`.
    void Meanwhile(const std::function<void()>& act, const std::function<bool()>& isUp,
                   const std::function<void()>& talk);

    /// The same for a form, which is then active.
    void Meanwhile(const std::function<void()>& act, platform::Form& form, const std::function<void()>& talk);

    /// Closes the message that `act` shows, after checking its text and, with `pPicture`, taking a picture.
    void MeetMessage(const std::function<void()>& act, std::string_view sText,
                     const char* pPicture = nullptr);

    /// Presses the shortcut key of Search Now; runs `talk` when half of the files have been compared.
    void Search(const std::function<void()>& talk = {});

    /// Checks the contents of the result list: groups of files, by their paths relative to the home folder.
    void ExpectGroups(std::vector<std::set<std::string>> wanted, std::string_view sWhat);

    /// The texts of both panels of the status bar.
    std::string Status();

    /// Takes a picture of all windows, and writes down the contents of the lists.
    void Show(const std::string& sName);

    /// Adds a line to the text.
    void Write(const std::string& sText) { m_text << sText << '\n' << std::flush; }

private:
    void DoEvents(std::int64_t nSteps) override;

    std::string m_sFolder;
    std::ofstream m_text;
    std::string m_sScene;
    int m_nPictures = 0;
    bool m_bFailed = false;
};

/// True for a mark that begins a group, whether or not its file exists.
bool BeginsGroup(int nMark);

/// A part of the tour.
struct tScene {
    const char* pName;
    void (*play)(Stage& stage);
};

/// All scenes in order; each continues from the state that the previous one has left.
std::vector<tScene> Scenes();

/// The scenes that change the found files.
std::vector<tScene> Operations();

/// The scenes in which something goes wrong.
std::vector<tScene> Troubles();

} // namespace tour
