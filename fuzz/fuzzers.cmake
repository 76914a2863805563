# The fuzz targets: each has fuzz/<name>.cpp and a seed corpus in fuzz/corpus/<name>/.
set(KORVANE_FUZZERS
    clc_loader
    csv_parser
    wv2_loader
)
