// SPDX-License-Identifier: MIT
#pragma once

#include <initializer_list>
#include <memory>
#include <string>
#include <vector>

using GAppInfo = struct _GAppInfo; // NOLINT(bugprone-reserved-identifier): the desktop's own name

namespace desktop {

/// An installed application.
struct tApplication {
    std::string sName; ///< in the user's language
    std::string sIcon; ///< the path of an image, or a name in the icon theme; empty for none
    std::shared_ptr<GAppInfo> info;
};

/// The applications that a user can choose from for a file.
struct tApplications {
    std::vector<tApplication> fitting; ///< those registered for the file's kind, the default one first
    std::vector<tApplication> others;  ///< all others that accept files, by name
};

/// The applications registered for files of these kinds, kind by kind, the default one of each first.
std::vector<tApplication> ApplicationsFor(std::initializer_list<const char*> kinds);

/// The applications that can open a file of this kind.
tApplications ApplicationsToChoose(const std::string& sKind);

/// Starts an application on a file, passed by its exact path and without a shell, or on none if the path is
/// empty. It runs in a session of its own, so that it survives this program and its terminal, and leaves no
/// zombie. Returns kStarted on success, otherwise kNoTerminal or an error of ShellExecuteA.
long Start(const tApplication& application, const std::string& sPath);

} // namespace desktop
