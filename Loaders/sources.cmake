# Sources of Loaders/, relative to the project root.
set(KORVANE_LOADERS_SOURCES
    Loaders/ClcLoader.cpp
    Loaders/ComtradeDataFormat.cpp
    Loaders/ComtradeVersion.cpp
    Loaders/CsvParser.cpp
    Loaders/CsvStringParser.cpp
    Loaders/EncodingDetector.cpp
    Loaders/Wv2DataReader.cpp
    Loaders/Wv2Loader.cpp
    Loaders/Wv2MetaDataReader.cpp
    Loaders/Wv2TagConverter.cpp
    Loaders/Wv2Tags.cpp
    Loaders/ZipArchive.cpp
)
