#include "platform/screen_reader.hpp"

#include <gio/gio.h>

namespace vesk::platform {

bool ReadScreenReaderSetting(bool& enabled)
{
    // g_settings_new aborts on a schema that is not installed, so look it up first.
    GSettingsSchemaSource* source = g_settings_schema_source_get_default();
    if (source == nullptr)
        return false;
    GSettingsSchema* schema =
        g_settings_schema_source_lookup(source, "org.gnome.desktop.a11y.applications", TRUE);
    if (schema == nullptr)
        return false;
    bool found = g_settings_schema_has_key(schema, "screen-reader-enabled");
    if (found) {
        GSettings* settings = g_settings_new_full(schema, nullptr, nullptr);
        enabled = g_settings_get_boolean(settings, "screen-reader-enabled") != FALSE;
        g_object_unref(settings);
    }
    g_settings_schema_unref(schema);
    return found;
}

} // namespace vesk::platform
