# The fuzz targets: each has fuzz/<name>.cpp and a seed corpus in fuzz/corpus/<name>/.
set(KORVANE_FUZZERS
    csv_parser
    comtrade_readers
    comtrade_loader
)
