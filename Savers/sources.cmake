# Sources of Savers/, relative to the project root.
set(KORVANE_SAVERS_SOURCES
)
