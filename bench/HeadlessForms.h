// SPDX-License-Identifier: MIT
#pragma once

#include "Control.h"
#include "FileSystem.h"
#include "FormMembers.h"
#include "MessageBoxes.h"
#include "PacedEventLoop.h"
#include "Screen.h"
#include "System.h"

#include <chrono>
#include <iostream>
#include <string>
#include <string_view>

// The environment that a search needs, without a window.

namespace bench {

using Clock = std::chrono::steady_clock;

inline double Seconds(Clock::time_point from, Clock::time_point to)
{
    return std::chrono::duration<double>(to - from).count();
}

class NoScreen final : public platform::Screen
{
    void SetMousePointer(platform::MousePointer /*pointer*/) override {}
};

class MessagesToTerminal final : public platform::MessageBoxes
{
    void Show(std::string_view sText, platform::MessageIcon /*icon*/) override { std::cerr << sText << '\n'; }
};

class MainForm final : public search::MainFormMembers
{
    void CheckMenu() override {}
    std::string sSelectedFolder() override { return {}; }
};

/// A progress window that records when the comparison begins.
class ProgressForm final : public search::ProgressFormMembers,
                           private search::ProgressBarMembers,
                           private platform::Observer
{
public:
    ProgressForm() { lblStatus.Observe(this); }
    Clock::time_point comparisonBegan;

private:
    ProgressBarMembers& pbProgress() override { return *this; }
    void Show() override {}
    void Refresh() override {}
    void Unload() override {}
    void SetMax(float /*New_Max*/) override {}
    void SetValue(float /*New_Value*/) override {}
    void StateChanged(platform::Observable& /*control*/) override
    {
        if (lblStatus.Caption() == "Comparing...") {
            comparisonBegan = Clock::now();
        }
    }
};

/// Installs everything that a search over `files` needs. The event loop does nothing.
struct tHeadless {
    explicit tHeadless(platform::FileSystem& files)
    {
        platform::UseSystem({&files, &events, &screen, &messages});
        search::UseForms(form, progress);
    }

    desktop::PacedEventLoop events{[] {}};
    NoScreen screen;
    MessagesToTerminal messages;
    MainForm form;
    ProgressForm progress;
};

} // namespace bench
