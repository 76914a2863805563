# korvane_add_fuzzer(<name> LIBS <fuzz_calclib | fuzz_core>) for each name in fuzzers.cmake.
korvane_add_fuzzer(descriptionfile LIBS fuzz_calclib)
korvane_add_fuzzer(calcwindow LIBS fuzz_calclib)
