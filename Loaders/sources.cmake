# Sources of Loaders/, relative to the project root.
set(KORVANE_LOADERS_SOURCES
    Loaders/ComtradeDataFormat.cpp
    Loaders/ComtradeVersion.cpp
    Loaders/CsvParser.cpp
    Loaders/CsvStringParser.cpp
    Loaders/EncodingDetector.cpp
    Loaders/ZipArchive.cpp
)
