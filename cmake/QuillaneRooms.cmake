# A room is one folder, one static library and one alias. It links only what it names here, so
# that the linker keeps the layers.

set(CMAKE_CXX_STANDARD 20)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_EXPORT_COMPILE_COMMANDS ON)

option(QUILLANE_SANITIZE "Build with the address and undefined-behaviour sanitizers" OFF)

add_library(quillane_options INTERFACE)
target_compile_options(quillane_options INTERFACE
    -Wall -Wextra -Wpedantic -Wshadow -Wconversion -Wnon-virtual-dtor -Woverloaded-virtual -Werror
    # GCC 12 takes "text" + std::string for an overlapping copy when it optimises.
    $<$<CXX_COMPILER_ID:GNU>:-Wno-restrict>)
target_include_directories(quillane_options INTERFACE "${CMAKE_SOURCE_DIR}/src")
if(QUILLANE_SANITIZE)
    target_compile_options(quillane_options INTERFACE
        -fsanitize=address,undefined -fno-sanitize-recover=all -fno-omit-frame-pointer)
    target_link_options(quillane_options INTERFACE -fsanitize=address,undefined)
endif()

# quillane_room(Scale LINKS Quillane::Data ...)
function(quillane_room name)
    cmake_parse_arguments(ROOM "" "" "LINKS;PRIVATE_LINKS" ${ARGN})
    file(GLOB sources CONFIGURE_DEPENDS "${CMAKE_CURRENT_SOURCE_DIR}/*.cpp")
    string(TOLOWER "quillane_${name}" target)
    add_library(${target} STATIC ${sources})
    add_library(Quillane::${name} ALIAS ${target})
    target_link_libraries(${target} PUBLIC ${ROOM_LINKS}
        PRIVATE quillane_options ${ROOM_PRIVATE_LINKS})
    target_include_directories(${target} PUBLIC "${CMAKE_SOURCE_DIR}/src")
endfunction()

# quillane_tests(Scale LINKS Quillane::Scale ...) builds every *Test.cpp of the folder into one
# program and registers each case. With SCREEN the program brings up an application off screen. With
# POSTGRES the cases of that name share one server, started for them and stopped behind them. With
# STATION the program works on a station's database, and all of it runs a second time on SQL Server,
# but for the cases that ONE_ENGINE names: they are about the file of an embedded database, or work
# on SQL Server whatever the others do.
function(quillane_tests name)
    cmake_parse_arguments(TESTS "SCREEN;POSTGRES;STATION" "ONE_ENGINE" "LINKS;LABELS" ${ARGN})
    file(GLOB sources CONFIGURE_DEPENDS "${CMAKE_CURRENT_SOURCE_DIR}/*.cpp")
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
    set(server "${CMAKE_SOURCE_DIR}/tests/platform/ado/postgres-server")
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
