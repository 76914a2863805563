# Sources of Settings/, relative to the project root.
set(KORVANE_SETTINGS_SOURCES
    Settings/ColorStyle.cpp
    Settings/KorvaneSettings.cpp
    Settings/KorvaneSettingsWidget.cpp
    Settings/SettingsDialog.cpp
    Settings/SettingsProvider.cpp
)
