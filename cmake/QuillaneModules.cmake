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
    # GCC 12 takes "text" + std::string for an overlapping copy when it optimises.
    $<$<CXX_COMPILER_ID:GNU>:-Wno-restrict>)
target_include_directories(quillane_options INTERFACE "${CMAKE_SOURCE_DIR}/src")
if(QUILLANE_SANITIZE)
    target_compile_options(quillane_options INTERFACE
        -fsanitize=address,undefined -fno-sanitize-recover=all -fno-omit-frame-pointer)
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

# quillane_module(Scale [SUBFOLDERS ...] LINKS Quillane::Data ...)
function(quillane_module name)
    cmake_parse_arguments(MODULE "" "" "SUBFOLDERS;LINKS;PRIVATE_LINKS" ${ARGN})
    quillane_sources(sources ${MODULE_SUBFOLDERS})
    string(TOLOWER "quillane_${name}" target)
    add_library(${target} STATIC ${sources})
    add_library(Quillane::${name} ALIAS ${target})
    target_link_libraries(${target} PUBLIC ${MODULE_LINKS}
        PRIVATE quillane_options ${MODULE_PRIVATE_LINKS})
    target_include_directories(${target} PUBLIC "${CMAKE_SOURCE_DIR}/src")
endfunction()

# quillane_tests(Scale LINKS Quillane::Scale ...) builds the folder's files into one program
# and registers each case. With SCREEN the program brings up an application off screen. With
# POSTGRES the cases of that name share one server, started for them and stopped behind them. With
# STATION the program works on a station's database, and all of it runs a second time on SQL Server,
# but for the cases that ONE_ENGINE names: they are about the file of an embedded database, or work
# on SQL Server whatever the others do.
function(quillane_tests name)
    cmake_parse_arguments(TESTS "SCREEN;POSTGRES;STATION" "ONE_ENGINE" "SUBFOLDERS;LINKS;LABELS"
        ${ARGN})
    quillane_sources(sources ${TESTS_SUBFOLDERS})
    set(target "${name}Test")
    add_executable(${target} ${sources})
    target_link_libraries(${target} PRIVATE quillane_options ${TESTS_LINKS} GTest::gtest)
    target_include_directories(${target} PRIVATE "${CMAKE_SOURCE_DIR}/tests")
    if(TESTS_SCREEN)
        target_link_libraries(${target} PRIVATE quillane_screen_test_main)
        set(environment ENVIRONMENT "QT_QPA_PLATFORM=offscreen")
    else()
        target_link_libraries(${target} PRIVATE GTest::gtest_main)
    endif()
    if(TESTS_STATION)
        target_link_libraries(${target} PRIVATE quillane_station_database)
        add_test(NAME ${name}.OnSqlServer COMMAND ${target} "--gtest_filter=-${TESTS_ONE_ENGINE}")
        quillane_on_sql_server(${name}.OnSqlServer "QT_QPA_PLATFORM=offscreen")
    endif()
    include(GoogleTest)
    if(TESTS_POSTGRES)
        quillane_postgres_tests(${name} ${target})
        set(filter TEST_FILTER "-*Postgres*")
    endif()
    gtest_discover_tests(${target} TEST_PREFIX "${name}." DISCOVERY_MODE PRE_TEST ${filter}
        PROPERTIES TIMEOUT 300 ${environment} LABELS "${TESTS_LABELS}")
endfunction()

# A test program that runs on the SQL Server that tests/sqlserver.local names, or is skipped where
# there is no such file.
function(quillane_on_sql_server test environment)
    set_tests_properties(${test} PROPERTIES TIMEOUT 3600 LABELS sqlserver RESOURCE_LOCK sqlserver
        ENVIRONMENT "QUILLANE_TEST_ENGINE=SqlServer;${environment}"
        SKIP_REGULAR_EXPRESSION "SQL Server is not there: no file tests/sqlserver.local names one")
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
