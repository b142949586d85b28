// SPDX-License-Identifier: MIT
#pragma once

#include <initializer_list>
#include <memory>
#include <string>
#include <vector>

using GAppInfo = struct _GAppInfo; // NOLINT(bugprone-reserved-identifier): the desktop's own name

namespace desktop {

/// An application that is installed on this machine.
struct tApplication {
    std::string sName; ///< in the user's language
    std::string sIcon; ///< the path of a picture, or the name of one in the desktop's set; empty for none
    std::shared_ptr<GAppInfo> info;
};

/// What a user can choose from for a file.
struct tApplications {
    std::vector<tApplication> fitting; ///< those registered for the file's kind, the usual one first
    std::vector<tApplication> others;  ///< all others that take files, by name
};

/// The applications registered for files of these kinds, kind by kind, the usual one of each first.
std::vector<tApplication> ApplicationsFor(std::initializer_list<const char*> kinds);

/// The applications that a file of a kind can be opened with.
tApplications ApplicationsToChoose(const std::string& sKind);

/// Starts an application on a file, by its exact path and without a shell, or, with an empty path, on none.
/// It becomes a session of its own, which neither the end of this program nor that of its terminal reaches,
/// and leaves no zombie. Returns kStarted, or why not: kNoTerminal, or a result of ShellExecuteA.
long Start(const tApplication& application, const std::string& sPath);

} // namespace desktop
