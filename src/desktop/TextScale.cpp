// SPDX-License-Identifier: MIT
#include "TextScale.h"

#include "GPointers.h"

#include <QGuiApplication>
#include <QScreen>

#include <algorithm>

namespace desktop {
namespace {

constexpr const char* kSchema = "org.gnome.desktop.interface";
constexpr const char* kKey = "text-scaling-factor";

/// The factor in the desktop's settings; 1 if there is none.
double SettingsFactor()
{
    GSettingsSchemaSource* const pSource = g_settings_schema_source_get_default();
    // Requesting a schema that is not installed would abort the program.
    const GPointer<GSettingsSchema> schema(
        pSource == nullptr ? nullptr : g_settings_schema_source_lookup(pSource, kSchema, TRUE));
    if (schema == nullptr || g_settings_schema_has_key(schema.get(), kKey) == FALSE) {
        return 1;
    }
    const GPointer<GSettings> settings(g_settings_new(kSchema));
    return g_settings_get_double(settings.get(), kKey);
}

/// The ratio of this screen to the smallest one that the forms are designed for.
double Room()
{
    constexpr double kLeastWidth = 640;
    constexpr double kLeastHeight = 480;
    const QSize room = QGuiApplication::primaryScreen()->availableSize();
    return std::max(1.0, std::min(room.width() / kLeastWidth, room.height() / kLeastHeight));
}

} // namespace

double TextScale()
{
    // On X11 the factor is part of the server's resolution, by which the toolkit scales everything; the same
    // holds if a resolution is set for Wayland.
    if (!QGuiApplication::platformName().startsWith(QLatin1String("wayland")) ||
        qEnvironmentVariableIsSet("QT_WAYLAND_FORCE_DPI")) {
        return 1;
    }
    return std::min(SettingsFactor(), Room());
}

} // namespace desktop
