# Registers a test program. Every test runs with a HOME and XDG folders of its own, on the offscreen platform
# unless it says DISPLAY, and under a time limit.
#   zel_test(name SOURCES a.cpp LINK lib... [DISPLAY] [LABEL text] [TIMEOUT seconds] [ENV "A=b"...])
function(zel_test name)
    cmake_parse_arguments(ARG "DISPLAY" "LABEL;TIMEOUT" "SOURCES;LINK;ENV" ${ARGN})
    zel_test_program(${name} SOURCES ${ARG_SOURCES} LINK ${ARG_LINK})
    zel_register(${name} COMMAND $<TARGET_FILE:${name}> LABEL "${ARG_LABEL}" TIMEOUT "${ARG_TIMEOUT}"
        ENV ${ARG_ENV} DISPLAY_WANTED ${ARG_DISPLAY})
endfunction()

# Adds a program that may use what tests have, without registering it.
function(zel_test_program name)
    cmake_parse_arguments(ARG "" "" "SOURCES;LINK" ${ARGN})
    add_executable(${name} ${ARG_SOURCES})
    target_link_libraries(${name} PRIVATE ${ARG_LINK} Qt5::Test)
    target_include_directories(${name} PRIVATE "${CMAKE_SOURCE_DIR}/src" "${CMAKE_SOURCE_DIR}/tests")
    # What each of them has without including it; what moc writes does without, mostly it is empty.
    set_source_files_properties(${ARG_SOURCES} PROPERTIES
        COMPILE_OPTIONS "-include;${CMAKE_SOURCE_DIR}/tests/support/test.h")
    set_target_properties(${name} PROPERTIES RUNTIME_OUTPUT_DIRECTORY "${CMAKE_BINARY_DIR}/tests")
endfunction()

# Adds a program that paints pictures for people (support/picturerun.h). The target `pictures` runs all of them into
# <build>/pictures/<name>, once with each of VARIANTS: words for the program.
#   zel_pictures(name SOURCES a.cpp LINK lib... [DEPENDS target...] [ENV "A=b"...] [VARIANTS "dark 2x"...])
function(zel_pictures name)
    cmake_parse_arguments(ARG "" "" "SOURCES;LINK;DEPENDS;ENV;VARIANTS" ${ARGN})
    zel_test_program(${name} SOURCES ${ARG_SOURCES} LINK ${ARG_LINK})
    if(NOT ARG_VARIANTS)
        set(ARG_VARIANTS light dark "light 2x" "light zh_CN")
    endif()
    set(folder "${CMAKE_BINARY_DIR}/pictures/${name}")
    set(runs "")
    foreach(variant IN LISTS ARG_VARIANTS)
        separate_arguments(words UNIX_COMMAND "${variant}")
        list(APPEND runs COMMAND ${CMAKE_COMMAND} -E env
            "ZEL_RESOURCES=${CMAKE_BINARY_DIR}/share/zelbox/res/2019zelbox" ${ARG_ENV}
            "${CMAKE_SOURCE_DIR}/tests/support/private-home.sh" $<TARGET_FILE:${name}> "${folder}" ${words})
    endforeach()
    add_custom_target(paint_${name} COMMAND ${CMAKE_COMMAND} -E make_directory "${folder}" ${runs} VERBATIM)
    add_dependencies(paint_${name} ${name} zelicons translations ${ARG_DEPENDS})
    if(NOT TARGET pictures)
        add_custom_target(pictures)
    endif()
    add_dependencies(pictures paint_${name})
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
