# Sources of Loaders/, relative to the project root.
set(KORVANE_LOADERS_SOURCES
    Loaders/ComtradeAsciiReader.cpp
    Loaders/ComtradeConfigReader.cpp
    Loaders/ComtradeDataFormat.cpp
    Loaders/ComtradeDataReader.cpp
    Loaders/ComtradeInfoReader.cpp
    Loaders/ComtradeLoader.cpp
    Loaders/ComtradeVersion.cpp
    Loaders/CsvParser.cpp
    Loaders/CsvStringParser.cpp
    Loaders/EncodingDetector.cpp
    Loaders/ZipArchive.cpp
)
