#pragma once

#include <initializer_list>
#include <memory>
#include <optional>
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

/// The application that opens files of the first of these kinds for which there is one.
std::optional<tApplication> DefaultApplication(std::initializer_list<const char*> kinds);

/// The applications for files of a kind.
tApplications ApplicationsFor(const std::string& sKind);

/// Starts an application on a file, by its exact path and without a shell. It becomes a session of its own,
/// which neither the end of this program nor that of its terminal reaches, and leaves no zombie. Returns
/// kStarted, or why not as a result of ShellExecuteA.
long Start(const tApplication& application, const std::string& sPath);

} // namespace desktop
