# The fuzz targets: each has fuzz/<name>.cpp and a seed corpus in fuzz/corpus/<name>/.
set(KORVANE_FUZZERS
    clc_loader
    csv_parser
    comtrade_readers
    descriptionfile
    calcwindow
    wv2_loader
)
