# One interface target carries every compile flag, so that no room sets its own.
add_library(lineara_flags INTERFACE)
target_compile_features(lineara_flags INTERFACE cxx_std_20)
target_compile_options(lineara_flags INTERFACE -Wall -Wextra -Wpedantic -Wconversion -Wsign-conversion
    -Wshadow -Wnon-virtual-dtor -Woverloaded-virtual -Wold-style-cast)
target_compile_definitions(lineara_flags INTERFACE
    QT_NO_CAST_FROM_ASCII QT_NO_CAST_TO_ASCII QT_NO_KEYWORDS QT_DISABLE_DEPRECATED_BEFORE=0x060400
    LINEARA_VERSION="${PROJECT_VERSION}")
if(LINEARA_WARNINGS_AS_ERRORS)
    target_compile_options(lineara_flags INTERFACE -Werror)
endif()
if(LINEARA_SANITIZERS)
    target_compile_options(lineara_flags INTERFACE -fsanitize=${LINEARA_SANITIZERS} -fno-omit-frame-pointer
        -fno-sanitize-recover=all)
    # With checks woven in, the compiler takes sound code for uninitialised; the builds without them keep the warning.
    target_compile_options(lineara_flags INTERFACE -Wno-maybe-uninitialized)
    target_link_options(lineara_flags INTERFACE -fsanitize=${LINEARA_SANITIZERS})
    # Checked code is built often and run little: optimising less makes its build a third shorter.
    set(CMAKE_CXX_FLAGS_RELWITHDEBINFO "-O1 -g1")
    # Long random comparisons run fewer rounds where every memory access is checked.
    target_compile_definitions(lineara_flags INTERFACE LINEARA_SANITIZED _GLIBCXX_ASSERTIONS)
endif()

# In a batch the names of one file lie around the next one, and none of its files is the main one.
target_compile_options(lineara_flags INTERFACE
    $<$<BOOL:$<TARGET_PROPERTY:UNITY_BUILD>>:-Wno-shadow;-Wno-subobject-linkage>)

# lineara_room(NAME SOURCES ... USES ...): one static library per folder below src/, with its own include root.
# A room sees the public headers of the rooms it names under USES and of no other.
function(lineara_room name)
    cmake_parse_arguments(ROOM "" "" "SOURCES;USES" ${ARGN})
    add_library(lineara_${name} STATIC ${ROOM_SOURCES})
    add_library(lineara::${name} ALIAS lineara_${name})
    target_include_directories(lineara_${name} PUBLIC include PRIVATE .)
    target_link_libraries(lineara_${name} PUBLIC ${ROOM_USES} PRIVATE lineara_flags)
endfunction()

# What every test runs under: no word of what passes, no screen, no desktop to ask or to start, and sanitizers that stop
# at the first finding and say where it is. A program that is started shares our memory until it runs, so ThreadSanitizer
# takes us for a fork from then on; that alone must not end a test. The search for leaks guesses where the thread-local
# memory of a plugin lies, and crashes where that begins sixteen bytes into a page; it reads such memory no longer.
set(LINEARA_TEST_ENVIRONMENT
    GTEST_BRIEF=1
    DBUS_SESSION_BUS_ADDRESS=disabled:
    QT_QPA_PLATFORM=offscreen
    QT_LOGGING_RULES=qt.qpa.*=false
    ASAN_OPTIONS=detect_stack_use_after_return=1:strict_string_checks=1:intercept_tls_get_addr=0:suppressions=${CMAKE_SOURCE_DIR}/cmake/asan.supp
    UBSAN_OPTIONS=print_stacktrace=1
    TSAN_OPTIONS=suppressions=${CMAKE_SOURCE_DIR}/cmake/tsan.supp:halt_on_error=1:second_deadlock_stack=1:die_after_fork=0
)

# lineara_test(NAME [SCREEN] SOURCES ... USES ...): one test program per room, run by ctest without a screen; with SCREEN in
# a virtual display of its own, where the real mouse and keyboard can be moved.
function(lineara_test name)
    cmake_parse_arguments(TEST "SCREEN" "" "SOURCES;USES" ${ARGN})
    add_executable(${name}_tests ${TEST_SOURCES})
    target_include_directories(${name}_tests PRIVATE ${CMAKE_SOURCE_DIR}/tests)
    target_link_libraries(${name}_tests PRIVATE ${TEST_USES} GTest::gmock lineara_flags)
    target_compile_definitions(${name}_tests PRIVATE LINEARA_TEST_DATA="${CMAKE_SOURCE_DIR}/tests/data"
        LINEARA_SAMPLES="${CMAKE_SOURCE_DIR}/samples")
    if(LINEARA_BATCHED_TESTS)
        set_target_properties(${name}_tests PROPERTIES UNITY_BUILD ON UNITY_BUILD_BATCH_SIZE 8)
    endif()
    set(environment ${LINEARA_TEST_ENVIRONMENT})
    if(TEST_SCREEN)
        add_test(NAME ${name} COMMAND xvfb-run -a -s "-screen 0 1600x1000x24 -nolisten tcp" $<TARGET_FILE:${name}_tests>)
        list(APPEND environment QT_QPA_PLATFORM=xcb LSAN_OPTIONS=suppressions=${CMAKE_SOURCE_DIR}/cmake/lsan.supp)
    else()
        add_test(NAME ${name} COMMAND ${name}_tests)
    endif()
    set_tests_properties(${name} PROPERTIES TIMEOUT 900 ENVIRONMENT "${environment}")
endfunction()

# lineara_bench(NAME SOURCES ... USES ...): a Google Benchmark program, bench_NAME.
function(lineara_bench name)
    cmake_parse_arguments(BENCH "" "" "SOURCES;USES" ${ARGN})
    add_executable(bench_${name} ${BENCH_SOURCES})
    target_include_directories(bench_${name} PRIVATE ${CMAKE_SOURCE_DIR}/bench)
    target_link_libraries(bench_${name} PRIVATE ${BENCH_USES} benchmark::benchmark lineara_flags)
endfunction()
