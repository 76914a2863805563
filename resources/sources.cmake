# Resources compiled into the library: the icons under ":/icons/", written by scripts/make_icons.py.
set(KORVANE_RESOURCES
    resources/icons.qrc
)
