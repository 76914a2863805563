# korvane_add_fuzzer(<name> LIBS <fuzz_calclib | fuzz_core>) for each name in fuzzers.cmake.
