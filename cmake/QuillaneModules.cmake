# A module is one folder, one static library and one alias. It links only what it names here, so that
# the linker keeps the layers.

set(CMAKE_CXX_STANDARD 20)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_EXPORT_COMPILE_COMMANDS ON)

option(QUILLANE_WARNINGS_AS_ERRORS "Fail the build on a warning" OFF)
option(QUILLANE_SANITIZE "Build with the address and undefined-behaviour sanitizers" OFF)

add_library(quillane_options INTERFACE)
target_compile_options(quillane_options INTERFACE
    -Wall -Wextra -Wpedantic -Wshadow -Wconversion -Wnon-virtual-dtor -Woverloaded-virtual
    $<$<BOOL:${QUILLANE_WARNINGS_AS_ERRORS}>:-Werror>
    # GCC 12 takes "text" + std::string for a copy that overlaps or is too long when it optimises.
    $<$<CXX_COMPILER_ID:GNU>:-Wno-restrict;-Wno-stringop-overflow;-Wno-array-bounds>)
target_include_directories(quillane_options INTERFACE "${CMAKE_SOURCE_DIR}/src")
if(QUILLANE_SANITIZE)
    target_compile_options(quillane_options INTERFACE
        -fsanitize=address,undefined -fno-sanitize-recover=all -fno-omit-frame-pointer
        # Enough for a report's file and line, and faster to compile and to link.
        -g1)
    target_link_options(quillane_options INTERFACE -fsanitize=address,undefined)
endif()

# The source files of this folder and of the subfolders named.
function(quillane_sources result)
    set(patterns "${CMAKE_CURRENT_SOURCE_DIR}/*.cpp")
    foreach(subfolder IN LISTS ARGN)
        list(APPEND patterns "${CMAKE_CURRENT_SOURCE_DIR}/${subfolder}/*.cpp")
    endforeach()
    file(GLOB sources CONFIGURE_DEPENDS ${patterns})
    set(${result} "${sources}" PARENT_SCOPE)
endfunction()

# Precompiled headers take two thirds off the time of a build. A file still includes what it uses:
# the lint check reads each without them.
set(QUILLANE_STANDARD_HEADERS <algorithm> <chrono> <filesystem> <fstream> <functional> <map> <memory>
    <optional> <string> <string_view> <thread> <vector>)
set(QUILLANE_SCREEN_HEADERS <QApplication> <QDialog> <QKeyEvent> <QWidget>)

# quillane_module(Scale [PLAIN] [SUBFOLDERS ...] LINKS Quillane::Data ...)
# PLAIN is for modules without screens.
function(quillane_module name)
    cmake_parse_arguments(MODULE "PLAIN" "" "SUBFOLDERS;LINKS;PRIVATE_LINKS" ${ARGN})
    quillane_sources(sources ${MODULE_SUBFOLDERS})
    string(TOLOWER "quillane_${name}" target)
    add_library(${target} STATIC ${sources})
    add_library(Quillane::${name} ALIAS ${target})
    target_link_libraries(${target} PUBLIC ${MODULE_LINKS}
        PRIVATE quillane_options ${MODULE_PRIVATE_LINKS})
    target_include_directories(${target} PUBLIC "${CMAKE_SOURCE_DIR}/src")
    target_compile_options(${target} PRIVATE -fPIC)
    set(headers quillane_screen_headers)
    if(MODULE_PLAIN)
        set(headers quillane_plain_headers)
    endif()
    target_precompile_headers(${target} REUSE_FROM ${headers})
endfunction()

# Tests need a SQL Server where these files name one; without them no such test is registered.
set(QUILLANE_SQL_SERVER "${CMAKE_SOURCE_DIR}/tests/sqlserver.local")
set(QUILLANE_SQL_SERVER_TO_KILL "${CMAKE_SOURCE_DIR}/tests/sqlserver-to-kill.local")
# The folder changes when one of them comes or goes.
set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS "${CMAKE_SOURCE_DIR}/tests")

# Test code is compiled without optimisation and with precompiled headers. PLAIN is for programs
# without screens. The undefined-behaviour sanitizer watches the program; in the comparisons of test
# code it would double the time to compile.
set(QUILLANE_TEST_FLAGS -O0 -fPIC $<$<BOOL:${QUILLANE_SANITIZE}>:-fno-sanitize=undefined>)
function(quillane_test_options target)
    cmake_parse_arguments(OPTIONS "PLAIN" "" "" ${ARGN})
    target_compile_options(${target} PRIVATE ${QUILLANE_TEST_FLAGS})
    set(headers quillane_screen_test_headers)
    if(OPTIONS_PLAIN)
        set(headers quillane_plain_test_headers)
    endif()
    target_precompile_headers(${target} REUSE_FROM ${headers})
endfunction()

# Test files that compute for seconds. Compiled otherwise than the rest, they cannot share its headers.
function(quillane_optimise_tests)
    set_source_files_properties(${ARGN} PROPERTIES
        COMPILE_OPTIONS -O2 SKIP_PRECOMPILE_HEADERS ON)
endfunction()

# quillane_tests(Scale LINKS Quillane::Scale ...) builds the folder's files into one program
# and registers each case. With SCREEN the program brings up an application off screen; its cases
# named *OnDisplay* need a display and are run by the tests that start one. With
# POSTGRES the cases of that name share one server, started for them and stopped after them.
# SQL_SERVER is a filter for the cases that always work on SQL Server, SQL_SERVER_TO_KILL one for
# those that kill it. With STATION the program works on a station's database, and all of it runs a
# second time on SQL Server, but for the cases of SQL_SERVER and those that EMBEDDED names: they are
# about the file of an embedded database.
function(quillane_tests name)
    cmake_parse_arguments(TESTS "SCREEN;POSTGRES;STATION"
        "EMBEDDED;SQL_SERVER;SQL_SERVER_TO_KILL" "SUBFOLDERS;LINKS" ${ARGN})
    quillane_sources(sources ${TESTS_SUBFOLDERS})
    set(target "${name}Test")
    add_executable(${target} ${sources})
    target_link_libraries(${target} PRIVATE quillane_options ${TESTS_LINKS} GTest::gtest)
    target_include_directories(${target} PRIVATE "${CMAKE_SOURCE_DIR}/tests")
    if(TESTS_SCREEN)
        target_link_libraries(${target} PRIVATE quillane_screen_test_main)
        quillane_test_options(${target})
        set(environment "QT_QPA_PLATFORM=offscreen")
    else()
        target_link_libraries(${target} PRIVATE GTest::gtest_main)
        quillane_test_options(${target} PLAIN)
    endif()
    include(GoogleTest)
    if(TESTS_POSTGRES)
        quillane_postgres_tests(${name} ${target})
        set(postgres "*Postgres*")
    endif()
    foreach(kind IN ITEMS SQL_SERVER SQL_SERVER_TO_KILL)
        if(TESTS_${kind} AND EXISTS "${QUILLANE_${kind}}")
            gtest_discover_tests(${target} TEST_PREFIX "${name}." DISCOVERY_MODE PRE_TEST
                TEST_FILTER "${TESTS_${kind}}"
                PROPERTIES TIMEOUT 900 LABELS sqlserver RESOURCE_LOCK sqlserver
                    ENVIRONMENT "QUILLANE_TEST_ENGINE=SqlServer;${environment}")
        endif()
    endforeach()
    if(TESTS_STATION)
        target_link_libraries(${target} PRIVATE quillane_station_database)
        quillane_on_sql_server(${name} "QT_QPA_PLATFORM=offscreen"
            ${target} "--gtest_filter=-${TESTS_EMBEDDED}:${TESTS_SQL_SERVER}")
    endif()
    quillane_cases(${name} ${target}
        "-*OnDisplay*:${postgres}:${TESTS_SQL_SERVER}:${TESTS_SQL_SERVER_TO_KILL}"
        "${environment}")
endfunction()

# Registers the cases of a filter, each as a test with a process for itself. Under the sanitizers such a
# process takes four times as long to start and end as most cases; there the cases share a few.
function(quillane_cases name target filter environment)
    if(NOT QUILLANE_SANITIZE)
        gtest_discover_tests(${target} TEST_PREFIX "${name}." DISCOVERY_MODE PRE_TEST
            TEST_FILTER "${filter}" PROPERTIES TIMEOUT 300 ENVIRONMENT "${environment}")
        return()
    endif()
    foreach(shard RANGE 3)
        set(test "${name}.Part${shard}")
        add_test(NAME ${test} COMMAND ${target} "--gtest_filter=${filter}")
        set_tests_properties(${test} PROPERTIES TIMEOUT 1200
            ENVIRONMENT "GTEST_TOTAL_SHARDS=4;GTEST_SHARD_INDEX=${shard};${environment}")
    endforeach()
endfunction()

# A test program of which every case works on the station's database, as one test on SQL Server.
function(quillane_on_sql_server name environment)
    if(NOT EXISTS "${QUILLANE_SQL_SERVER}")
        return()
    endif()
    add_test(NAME ${name}.OnSqlServer COMMAND ${ARGN})
    set_tests_properties(${name}.OnSqlServer PROPERTIES TIMEOUT 3600 RESOURCE_LOCK sqlserver
        LABELS sqlserver ENVIRONMENT "QUILLANE_TEST_ENGINE=SqlServer;${environment}")
endfunction()

# The cases of a test program that need PostgreSQL. They skip themselves where it is not installed.
function(quillane_postgres_tests name target)
    set(server "${CMAKE_SOURCE_DIR}/tests/servers/postgres-server")
    set(info "${CMAKE_CURRENT_BINARY_DIR}/postgres.info")
    add_test(NAME ${name}.PostgresStarts COMMAND ${server} start ${info})
    add_test(NAME ${name}.PostgresStops COMMAND ${server} stop ${info})
    set_tests_properties(${name}.PostgresStarts PROPERTIES FIXTURES_SETUP ${name}Postgres)
    set_tests_properties(${name}.PostgresStops PROPERTIES FIXTURES_CLEANUP ${name}Postgres)
    set_tests_properties(${name}.PostgresStarts ${name}.PostgresStops PROPERTIES
        SKIP_RETURN_CODE 77 TIMEOUT 120)
    gtest_discover_tests(${target} TEST_PREFIX "${name}." DISCOVERY_MODE PRE_TEST
        TEST_FILTER "*Postgres*"
        PROPERTIES TIMEOUT 300 FIXTURES_REQUIRED ${name}Postgres
            ENVIRONMENT "QUILLANE_TEST_POSTGRES=${info}")
endfunction()
