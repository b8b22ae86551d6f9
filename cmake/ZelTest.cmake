# Registers a test program. Every test runs with a HOME and XDG folders of its own, on the offscreen platform
# unless it says DISPLAY, and under a time limit.
#   zel_test(name SOURCES a.cpp LINK lib... [DISPLAY] [LABEL text] [TIMEOUT seconds] [ENV "A=b"...])
function(zel_test name)
    cmake_parse_arguments(ARG "DISPLAY" "LABEL;TIMEOUT" "SOURCES;LINK;ENV" ${ARGN})
    add_executable(${name} ${ARG_SOURCES})
    target_link_libraries(${name} PRIVATE ${ARG_LINK} Qt5::Test)
    target_include_directories(${name} PRIVATE "${CMAKE_SOURCE_DIR}/src" "${CMAKE_SOURCE_DIR}/tests")
    set_target_properties(${name} PROPERTIES RUNTIME_OUTPUT_DIRECTORY "${CMAKE_BINARY_DIR}/tests")
    zel_register(${name} COMMAND $<TARGET_FILE:${name}> LABEL "${ARG_LABEL}" TIMEOUT "${ARG_TIMEOUT}"
        ENV ${ARG_ENV} DISPLAY_WANTED ${ARG_DISPLAY})
endfunction()

# Registers a command as a test with the same private surroundings.
function(zel_register name)
    cmake_parse_arguments(ARG "" "LABEL;TIMEOUT;DISPLAY_WANTED" "COMMAND;ENV" ${ARGN})
    if(NOT ARG_TIMEOUT)
        set(ARG_TIMEOUT 120)
    endif()
    if(NOT ARG_LABEL)
        set(ARG_LABEL unit)
    endif()
    set(wrapper "${CMAKE_SOURCE_DIR}/tests/support/private-home.sh")
    if(ARG_DISPLAY_WANTED)
        list(APPEND ARG_ENV "ZEL_TEST_DISPLAY=1")
    endif()
    add_test(NAME ${name} COMMAND "${wrapper}" ${ARG_COMMAND})
    set_tests_properties(${name} PROPERTIES TIMEOUT ${ARG_TIMEOUT} LABELS "${ARG_LABEL}"
        ENVIRONMENT "${ARG_ENV};ZEL_BUILD_DIR=${CMAKE_BINARY_DIR};ZEL_SOURCE_DIR=${CMAKE_SOURCE_DIR}")
endfunction()
