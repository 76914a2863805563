# One executable per tested class or small family, registered with CTest, run headless.
#   korvane_add_test(tst_name SOURCES a.cpp b.cpp [LIBS extra...] [TIMEOUT seconds] [CALCLIB_ONLY])
# CALCLIB_ONLY links the Qt-free numeric library and QtTest, without the rest of the library.
find_package(Qt5 5.15 REQUIRED COMPONENTS Test)
if(NOT TARGET Qt5::Test)
    message(FATAL_ERROR "QtTest is required to build the test suite")
endif()

function(korvane_add_test name)
    cmake_parse_arguments(ARG "CALCLIB_ONLY" "TIMEOUT" "SOURCES;LIBS" ${ARGN})
    if(NOT ARG_TIMEOUT)
        set(ARG_TIMEOUT 300)
    endif()
    add_executable(${name} ${ARG_SOURCES})
    if(ARG_CALCLIB_ONLY)
        target_link_libraries(${name} PRIVATE CalcLib Qt5::Test ${ARG_LIBS})
        # The Qt-free helpers of tests/support only.
        target_include_directories(${name} PRIVATE ${PROJECT_SOURCE_DIR}/tests/support)
    else()
        target_link_libraries(${name} PRIVATE korvane korvane_testsupport Qt5::Test ${ARG_LIBS})
    endif()
    target_compile_options(${name} PRIVATE -Wall -Wextra)
    if(KORVANE_WERROR)
        target_compile_options(${name} PRIVATE -Werror)
    endif()
    add_test(NAME ${name} COMMAND ${name})
    # KORVANE_SAMPLES, when the test script sets it, reaches the tests through CTest's own environment.
    set(env "QT_QPA_PLATFORM=offscreen")
    if(KORVANE_SANITIZE)
        # Qt's offscreen screen is never freed: the leak checker is told so, and unwinds fully so
        # that every allocation of that screen is seen to come from the platform plugin.
        list(APPEND env "LSAN_OPTIONS=suppressions=${PROJECT_SOURCE_DIR}/tests/support/lsan-qt-offscreen.supp"
                        "ASAN_OPTIONS=fast_unwind_on_malloc=0")
    endif()
    # A program that had nothing to run exits with KorvaneTest::skipReturnCode (tests/support).
    set_tests_properties(${name} PROPERTIES TIMEOUT ${ARG_TIMEOUT} ENVIRONMENT "${env}" SKIP_RETURN_CODE 77)
endfunction()
