// SPDX-License-Identifier: MIT
#pragma once

#include "EventLoop.h"
#include "FileSystem.h"
#include "Launching.h"
#include "MessageBoxes.h"
#include "Screen.h"
#include "ShellDialogs.h"
#include "ShellFiles.h"
#include "TextFiles.h"
#include "Volumes.h"
#include "WindowManager.h"

namespace platform {

/// The operations of the system that can fail or involve the user, as interfaces that tests can replace. None
/// is owned here; each must outlive its use.
struct tSystem {
    FileSystem* files = nullptr;
    EventLoop* events = nullptr;
    Screen* screen = nullptr;
    MessageBoxes* messages = nullptr;
    WindowManager* windows = nullptr;
    ShellDialogs* dialogs = nullptr;
    ShellFiles* shellFiles = nullptr;
    Launcher* launcher = nullptr;
    TextFiles* textFiles = nullptr;
    Volumes* volumes = nullptr;
};

/// Installs `system` for the whole program. Must be called before anything that uses it.
void UseSystem(const tSystem& system);

/// The installed system.
const tSystem& System();

} // namespace platform
