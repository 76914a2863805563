# Sources of CalcLib/, relative to the project root. Standard C++ only.
set(KORVANE_CALCLIB_SOURCES
)
