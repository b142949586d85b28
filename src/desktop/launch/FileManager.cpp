// SPDX-License-Identifier: MIT
#include "FileManager.h"

#include "FileKind.h"
#include "GPointers.h"
#include "SessionBus.h"

namespace desktop {
namespace {

constexpr guint kPatience = 800; // ms, for all steps together

/// An asynchronous query to the file manager, run step by step in an event loop of its own.
class Question
{
public:
    explicit Question(GVariant* pArguments) : m_pArguments(g_variant_ref_sink(pArguments)) {}

    /// Sends the query and waits for the answer or the timeout.
    bool Ask()
    {
        GMainContext* const pContext = g_main_context_new();
        g_main_context_push_thread_default(pContext);
        GSource* const pPatience = g_timeout_source_new(kPatience);
        g_source_set_callback(pPatience, &Question::PatienceEnded, this, nullptr);
        g_source_attach(pPatience, pContext);
        g_bus_get(G_BUS_TYPE_SESSION, m_cancel.get(), &Question::Connected, this);
        while (!m_bOver) {
            g_main_context_iteration(pContext, TRUE);
        }
        g_source_destroy(pPatience);
        g_source_unref(pPatience);
        g_main_context_pop_thread_default(pContext);
        g_main_context_unref(pContext);
        return m_bAnswered;
    }

private:
    static gboolean PatienceEnded(gpointer pThis)
    {
        // The current step then ends with an error.
        g_cancellable_cancel(static_cast<Question*>(pThis)->m_cancel.get());
        return G_SOURCE_REMOVE;
    }

    static void Connected(GObject* /*pSource*/, GAsyncResult* pResult, gpointer pThis)
    {
        auto& self = *static_cast<Question*>(pThis);
        self.m_connection.reset(g_bus_get_finish(pResult, nullptr));
        if (!self.m_connection) {
            self.m_bOver = true;
            return;
        }
        // When the session bus ends, the program must not end in the middle of its work.
        g_dbus_connection_set_exit_on_close(self.m_connection.get(), FALSE);
        // Starting a file manager would take too long, and the program has a property window of its own.
        g_dbus_connection_call(self.m_connection.get(), "org.freedesktop.FileManager1",
                               "/org/freedesktop/FileManager1", "org.freedesktop.FileManager1",
                               "ShowItemProperties", self.m_pArguments.get(), nullptr,
                               G_DBUS_CALL_FLAGS_NO_AUTO_START, static_cast<gint>(kPatience),
                               self.m_cancel.get(), &Question::Answered, pThis);
    }

    static void Answered(GObject* /*pSource*/, GAsyncResult* pResult, gpointer pThis)
    {
        auto& self = *static_cast<Question*>(pThis);
        const GVariantPointer answer(
            g_dbus_connection_call_finish(self.m_connection.get(), pResult, nullptr));
        self.m_bAnswered = answer != nullptr;
        self.m_bOver = true;
    }

    GPointer<GCancellable> m_cancel{g_cancellable_new()};
    GVariantPointer m_pArguments;
    GPointer<GDBusConnection> m_connection;
    bool m_bAnswered = false;
    bool m_bOver = false;
};

} // namespace

bool ShowItemProperties(const std::string& sPath)
{
    if (!HasSessionBus()) {
        return false;
    }
    const std::string sUri = FileUri(sPath);
    const char* const aUris[] = {sUri.c_str(), nullptr};
    return Question(g_variant_new("(^ass)", static_cast<const char* const*>(aUris), "")).Ask();
}

} // namespace desktop
