// SPDX-License-Identifier: MIT
#include "Applications.h"

#include "FileKind.h"
#include "GPointers.h"
#include "LaunchCode.h"
#include "SessionBus.h"
#include "Texts.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <gio/gdesktopappinfo.h>
#include <unistd.h>
#include <utility>

namespace desktop {
namespace {

std::string IconOf(GAppInfo* pInfo)
{
    GIcon* const pIcon = g_app_info_get_icon(pInfo);
    if (pIcon == nullptr) {
        return {};
    }
    if (G_IS_FILE_ICON(pIcon)) {
        const GText path(g_file_get_path(g_file_icon_get_file(G_FILE_ICON(pIcon))));
        return path ? path.get() : "";
    }
    if (G_IS_THEMED_ICON(pIcon)) {
        const char* const* const pNames = g_themed_icon_get_names(G_THEMED_ICON(pIcon));
        return pNames[0] != nullptr ? pNames[0] : "";
    }
    return {};
}

/// Takes ownership of a reference.
tApplication Application(GAppInfo* pInfo)
{
    const char* const pName = g_app_info_get_display_name(pInfo);
    return {pName != nullptr ? pName : "", IconOf(pInfo), std::shared_ptr<GAppInfo>(pInfo, UnrefG())};
}

/// Takes ownership of a list.
std::vector<tApplication> Applications(GList* pList)
{
    std::vector<tApplication> applications;
    for (const GList* p = pList; p != nullptr; p = p->next) {
        applications.push_back(Application(G_APP_INFO(p->data)));
    }
    g_list_free(pList);
    return applications;
}

std::string IdOf(const tApplication& application)
{
    const char* const pId = g_app_info_get_id(application.info.get());
    return pId != nullptr ? pId : application.sName;
}

bool IsAmong(const std::vector<tApplication>& applications, const tApplication& application)
{
    return std::any_of(applications.begin(), applications.end(),
                       [&](const tApplication& each) { return IdOf(each) == IdOf(application); });
}

void SortByName(std::vector<tApplication>& applications)
{
    std::vector<std::pair<std::string, tApplication>> keyed;
    keyed.reserve(applications.size());
    for (tApplication& each : applications) {
        std::string sKey = platform::FoldCase(each.sName);
        keyed.emplace_back(std::move(sKey), std::move(each));
    }
    std::stable_sort(keyed.begin(), keyed.end(),
                     [](const auto& one, const auto& other) { return one.first < other.first; });
    std::transform(keyed.begin(), keyed.end(), applications.begin(),
                   [](auto& each) { return std::move(each.second); });
}

/// The reason of a failed start, as an error number of the system.
int ErrorNumber(const GError& error)
{
    constexpr std::array<std::pair<int, int>, 17> kNumbers = {{{G_SPAWN_ERROR_FORK, EAGAIN},
                                                               {G_SPAWN_ERROR_CHDIR, ENOENT},
                                                               {G_SPAWN_ERROR_ACCES, EACCES},
                                                               {G_SPAWN_ERROR_PERM, EPERM},
                                                               {G_SPAWN_ERROR_TOO_BIG, E2BIG},
                                                               {G_SPAWN_ERROR_NAMETOOLONG, ENAMETOOLONG},
                                                               {G_SPAWN_ERROR_NOENT, ENOENT},
                                                               {G_SPAWN_ERROR_NOMEM, ENOMEM},
                                                               {G_SPAWN_ERROR_NOTDIR, ENOTDIR},
                                                               {G_SPAWN_ERROR_LOOP, ELOOP},
                                                               {G_SPAWN_ERROR_TXTBUSY, ETXTBSY},
                                                               {G_SPAWN_ERROR_IO, EIO},
                                                               {G_SPAWN_ERROR_NFILE, ENFILE},
                                                               {G_SPAWN_ERROR_MFILE, EMFILE},
                                                               {G_SPAWN_ERROR_INVAL, EINVAL},
                                                               {G_SPAWN_ERROR_ISDIR, EISDIR},
                                                               {G_SPAWN_ERROR_LIBBAD, ELIBBAD}}};
    const auto* const pFound = std::find_if(kNumbers.begin(), kNumbers.end(),
                                            [&](const auto& each) { return each.first == error.code; });
    return error.domain == G_SPAWN_ERROR && pFound != kNumbers.end() ? pFound->second : ENOEXEC;
}

/// Runs between fork and exec, where only async-signal-safe calls are allowed.
void BecomeSession(gpointer /*pData*/)
{
    setsid();
}

} // namespace

std::vector<tApplication> ApplicationsFor(std::initializer_list<const char*> kinds)
{
    std::vector<tApplication> applications;
    const auto add = [&applications](const tApplication& application) {
        if (!IsAmong(applications, application)) {
            applications.push_back(application);
        }
    };
    for (const char* const pKind : kinds) {
        if (GAppInfo* const pInfo = g_app_info_get_default_for_type(pKind, FALSE)) {
            add(Application(pInfo));
        }
        for (const tApplication& each : Applications(g_app_info_get_all_for_type(pKind))) {
            add(each);
        }
    }
    return applications;
}

tApplications ApplicationsToChoose(const std::string& sKind)
{
    tApplications result{ApplicationsFor({sKind.c_str()}), {}};
    for (const tApplication& each : Applications(g_app_info_get_all())) {
        GAppInfo* const pInfo = each.info.get();
        if (g_app_info_should_show(pInfo) != FALSE &&
            (g_app_info_supports_files(pInfo) != FALSE || g_app_info_supports_uris(pInfo) != FALSE) &&
            !IsAmong(result.fitting, each)) {
            result.others.push_back(each);
        }
    }
    SortByName(result.others);
    return result;
}

long Start(const tApplication& application, const std::string& sPath)
{
    const std::string sUri = FileUri(sPath);
    if ((sUri.empty() && !sPath.empty()) || !application.info) {
        return kNoSuchFile;
    }
    const GPointer<GAppLaunchContext> context(g_app_launch_context_new());
    if (!HasSessionBus()) {
        g_app_launch_context_unsetenv(context.get(), "DBUS_SESSION_BUS_ADDRESS");
    }
    GList uris{const_cast<char*>(sUri.c_str()), nullptr, nullptr};
    GDesktopAppInfo* const pInfo = G_DESKTOP_APP_INFO(application.info.get());
    GError* pError = nullptr;
    const gboolean bStarted = g_desktop_app_info_launch_uris_as_manager(
        pInfo, sPath.empty() ? nullptr : &uris, context.get(), G_SPAWN_SEARCH_PATH, &BecomeSession, nullptr,
        nullptr, nullptr, &pError);
    const GErrorPointer error(pError);
    if (bStarted != FALSE) {
        return kStarted;
    }
    // For an application that runs in a terminal, a failure before anything is executed means that no
    // terminal was found.
    if (error && error->domain == G_IO_ERROR && g_desktop_app_info_get_boolean(pInfo, "Terminal") != FALSE) {
        return kNoTerminal;
    }
    return LaunchCode(error ? ErrorNumber(*error) : ENOEXEC);
}

} // namespace desktop
