// SPDX-License-Identifier: MIT
#pragma once

#include "Control.h"
#include "EventLoop.h"
#include "Form.h"
#include "Launches.h"
#include "Menu.h"
#include "SampleTree.h"
#include "frmMain.h"

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

/// The program as a scene finds it: its forms on the screen, a tree of files, and the hands and eyes of a
/// visitor. What a visitor does goes to the widgets as events of the mouse and the keyboard.
class Stage final : private platform::EventLoop
{
public:
    /// Pictures and the text go into folder `sFolder`, which exists.
    Stage(SampleTree& sampleTree, Launches& programs, std::string sFolder);

    SampleTree& tree;
    Launches& launches;
    mainwindow::frmMain& main = mainwindow::theMainForm();

    /// The loop for the program: unlike the program's own it delivers all input at each step, so that a scene
    /// can act at the very step that it waits for.
    platform::EventLoop& Events() { return *this; }

    /// What is said from now on is said of this scene.
    void Enter(const char* pScene);
    [[nodiscard]] bool Failed() const { return m_bFailed; }

    /// Notes that `sFact` does not hold. The scene goes on.
    void Expect(bool bHolds, std::string_view sFact);
    void ExpectEqual(const std::string& sGot, const std::string& sWanted, std::string_view sWhat);

    /// Lets the program run until `isTrue`; notes `sFact` if that takes too long.
    void WaitFor(const std::function<bool()>& isTrue, std::string_view sFact);

    /// A click in the middle of a control or of some widget.
    void Click(const platform::Control& control, Qt::MouseButton button = Qt::LeftButton);
    void Click(QWidget* pWidget);

    /// A click on the toolbar's button of that caption.
    void Tool(std::string_view sCaption);

    /// Opens a menu of the menu bar, or a submenu of the one that is open.
    void Open(const platform::MenuItem& menu);

    /// Clicks on an item of the menu that is open.
    void Choose(const platform::MenuItem& item);

    /// A key for whoever has the focus.
    void Press(Qt::Key key, Qt::KeyboardModifiers held = {});
    void Type(std::string_view sText);

    /// Does something that returns only when what it brings up has gone. Once `isUp`, `talk` runs.
    void Meanwhile(const std::function<void()>& act, const std::function<bool()>& isUp,
                   const std::function<void()>& talk);

    /// The same with a form, which then is active.
    void Meanwhile(const std::function<void()>& act, platform::Form& form, const std::function<void()>& talk);

    /// Meets the message that `act` brings up, of which it takes a picture if `pPicture` is given.
    void MeetMessage(const std::function<void()>& act, std::string_view sText,
                     const char* pPicture = nullptr);

    /// Presses the key of Search Now; `talk` runs when half of the files have been compared.
    void Search(const std::function<void()>& talk = {});

    /// What the result list has to hold: groups of files, named by their paths below the home folder.
    void ExpectGroups(std::vector<std::set<std::string>> wanted, std::string_view sWhat);

    /// Both panels of the status bar.
    std::string Status();

    /// Takes a picture of all that is up, and writes down what the lists hold.
    void Show(const std::string& sName);

    /// Writes a text down.
    void Write(const std::string& sText) { m_text << sText << '\n' << std::flush; }

private:
    void DoEvents(std::int64_t nSteps) override;

    std::string m_sFolder;
    std::ofstream m_text;
    std::string m_sScene;
    int m_nPictures = 0;
    bool m_bFailed = false;
};

/// True for a mark that begins a group, whether or not its file is there.
bool BeginsGroup(int nMark);

/// A part of the visit.
struct tScene {
    const char* pName;
    void (*play)(Stage& stage);
};

/// All scenes in their order: each finds what the ones before it have left.
std::vector<tScene> Scenes();

/// Those in which something is done to the files found.
std::vector<tScene> Operations();

/// Those in which something goes wrong.
std::vector<tScene> Troubles();

} // namespace tour
