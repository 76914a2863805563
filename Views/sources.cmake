# Sources of Views/, relative to the project root.
set(KORVANE_VIEWS_SOURCES
    Views/Painters/ColorStyle.cpp
)
