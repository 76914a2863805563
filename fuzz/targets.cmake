# korvane_add_fuzzer(<name> LIBS <fuzz_calclib | fuzz_core>) for each name in fuzzers.cmake.
korvane_add_fuzzer(clc_loader LIBS fuzz_core)
korvane_add_fuzzer(csv_parser LIBS fuzz_core)
korvane_add_fuzzer(comtrade_readers LIBS fuzz_calclib)
korvane_add_fuzzer(descriptionfile LIBS fuzz_calclib)
korvane_add_fuzzer(calcwindow LIBS fuzz_calclib)
korvane_add_fuzzer(wv2_loader LIBS fuzz_core)
