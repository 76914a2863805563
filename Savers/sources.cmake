# Sources of Savers/, relative to the project root.
set(KORVANE_SAVERS_SOURCES
    Savers/ComtradeSaveSettings.cpp
    Savers/ComtradeSaver.cpp
    Savers/ComtradeSaverBasics.cpp
    Savers/ComtradeSaverData.cpp
    Savers/ComtradeSaverFiles.cpp
    Savers/Converter.cpp
    Savers/CsvNumberFormat.cpp
    Savers/CsvSaveSettings.cpp
    Savers/CsvSaver.cpp
    Savers/DiaSaveSettings.cpp
    Savers/OscSaverFactory.cpp
    Savers/SaverRunner.cpp
    Savers/UserSettingsJson.cpp
    Savers/WaveSaver.cpp
)
