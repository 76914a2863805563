# Sources of Savers/, relative to the project root.
set(KORVANE_SAVERS_SOURCES
    Savers/ComtradeSaver.cpp
    Savers/ComtradeSaverBasics.cpp
    Savers/ComtradeSaverData.cpp
    Savers/ComtradeSaverFiles.cpp
    Savers/Converter.cpp
    Savers/OscSaverFactory.cpp
    Savers/UserSettingsJson.cpp
    Savers/WaveSaver.cpp
)
