# Sources of Settings/, relative to the project root.
set(KORVANE_SETTINGS_SOURCES
)
