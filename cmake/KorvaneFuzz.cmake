# libFuzzer targets need clang; they are built as a project of their own (fuzz/) with clang++
# and instrumented copies of the sources under test, then each runs briefly on its seed corpus.
find_program(KORVANE_CLANGXX NAMES clang++ clang++-14)
if(NOT KORVANE_CLANGXX)
    message(WARNING "clang++ not found: the fuzz targets are not built")
    return()
endif()

include(ExternalProject)
set(KORVANE_FUZZ_BINARY_DIR ${CMAKE_BINARY_DIR}/fuzz)
ExternalProject_Add(korvane_fuzz
    SOURCE_DIR ${CMAKE_SOURCE_DIR}/fuzz
    BINARY_DIR ${KORVANE_FUZZ_BINARY_DIR}
    CMAKE_ARGS -DCMAKE_CXX_COMPILER=${KORVANE_CLANGXX} -DCMAKE_BUILD_TYPE=RelWithDebInfo
               -DCMAKE_MAKE_PROGRAM=${CMAKE_MAKE_PROGRAM}
    CMAKE_GENERATOR ${CMAKE_GENERATOR}
    BUILD_ALWAYS ON
    INSTALL_COMMAND "")

include(${CMAKE_SOURCE_DIR}/fuzz/fuzzers.cmake)
foreach(fuzzer IN LISTS KORVANE_FUZZERS)
    add_test(NAME fuzz_${fuzzer}
             COMMAND ${CMAKE_SOURCE_DIR}/scripts/run-fuzzer.sh ${KORVANE_FUZZ_BINARY_DIR}/${fuzzer}
                     ${CMAKE_SOURCE_DIR}/fuzz/corpus/${fuzzer} 20 ${KORVANE_FUZZ_MAX_LEN_${fuzzer}})
    set_tests_properties(fuzz_${fuzzer} PROPERTIES TIMEOUT 120 ENVIRONMENT "QT_QPA_PLATFORM=offscreen")
endforeach()
