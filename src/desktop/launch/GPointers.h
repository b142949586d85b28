// SPDX-License-Identifier: MIT
#pragma once

#include <gio/gio.h>
#include <memory>

namespace desktop {

struct FreeG {
    void operator()(gpointer p) const { g_free(p); }
    void operator()(GError* p) const { g_error_free(p); }
};
struct UnrefG {
    void operator()(gpointer p) const { g_object_unref(p); }
    void operator()(GSettingsSchema* p) const { g_settings_schema_unref(p); }
};
struct UnrefVariant {
    void operator()(GVariant* p) const { g_variant_unref(p); }
};

/// Owners of objects returned by GLib.
using GText = std::unique_ptr<gchar, FreeG>;
using GErrorPointer = std::unique_ptr<GError, FreeG>;
template <typename T>
using GPointer = std::unique_ptr<T, UnrefG>;
using GVariantPointer = std::unique_ptr<GVariant, UnrefVariant>;

} // namespace desktop
