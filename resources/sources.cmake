# Resources compiled into the library: the icons under ":/icons/", written by scripts/make_icons.py,
# and the translations under ":/translations/", compiled from resources/translations/*.ts at build
# time (scripts/update-translations.sh brings the .ts up to date with the sources).
set(KORVANE_RESOURCES
    resources/icons.qrc
)

set(KORVANE_TRANSLATION_SOURCES ${CMAKE_CURRENT_SOURCE_DIR}/resources/translations/korvane_en.ts)
set_source_files_properties(${KORVANE_TRANSLATION_SOURCES} PROPERTIES OUTPUT_LOCATION
                            ${CMAKE_CURRENT_BINARY_DIR}/translations)
qt5_add_translation(KORVANE_QM_FILES ${KORVANE_TRANSLATION_SOURCES})
set(KORVANE_EN_QM ${CMAKE_CURRENT_BINARY_DIR}/translations/korvane_en.qm)
configure_file(${CMAKE_CURRENT_SOURCE_DIR}/resources/translations.qrc.in
               ${CMAKE_CURRENT_BINARY_DIR}/translations/translations.qrc @ONLY)
qt5_add_resources(KORVANE_RESOURCES ${CMAKE_CURRENT_BINARY_DIR}/translations/translations.qrc)
