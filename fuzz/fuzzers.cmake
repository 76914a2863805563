# The fuzz targets: each has fuzz/<name>.cpp and a seed corpus in fuzz/corpus/<name>/.
set(KORVANE_FUZZERS
    clc_loader
    csv_parser
    comtrade_readers
    descriptionfile
    calcwindow
    wv2_loader
    comtrade_loader
)

# The longest input each target is given (-max_len): room for counts that reach the memory and
# size checks of its format, not more, since longer inputs make every run slower.
set(KORVANE_FUZZ_MAX_LEN_clc_loader 1048576)
set(KORVANE_FUZZ_MAX_LEN_csv_parser 16384)
set(KORVANE_FUZZ_MAX_LEN_comtrade_readers 65536)
set(KORVANE_FUZZ_MAX_LEN_descriptionfile 16384)
set(KORVANE_FUZZ_MAX_LEN_calcwindow 8192)
set(KORVANE_FUZZ_MAX_LEN_wv2_loader 2097152)
set(KORVANE_FUZZ_MAX_LEN_comtrade_loader 1048576)
