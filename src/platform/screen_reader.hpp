#pragma once


namespace vesk::platform {

// Reads the desktop's accessibility setting for the screen reader (GSettings key
// "screen-reader-enabled" of "org.gnome.desktop.a11y.applications"). Returns false, leaving
// `enabled` alone, when the desktop has no such setting.
bool ReadScreenReaderSetting(bool& enabled);

} // namespace vesk::platform
