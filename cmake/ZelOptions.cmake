# Compiler settings that hold for every target of the box.
set(CMAKE_CXX_STANDARD 20)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_POSITION_INDEPENDENT_CODE ON)
set(CMAKE_CXX_VISIBILITY_PRESET hidden)
set(CMAKE_VISIBILITY_INLINES_HIDDEN ON)
set(CMAKE_EXPORT_COMPILE_COMMANDS ON)

find_program(CCACHE_PROGRAM ccache)
if(CCACHE_PROGRAM)
    set(CMAKE_CXX_COMPILER_LAUNCHER "${CCACHE_PROGRAM}")
endif()

add_compile_options(-Wall -Wextra -Wpedantic -Wshadow -Wnon-virtual-dtor -Woverloaded-virtual -Wcast-align
    -Wformat=2)
# Off where the box is packaged: a warning of a compiler to come must not keep anybody from building it.
option(ZEL_WERROR "Take compiler warnings for errors" ON)
if(ZEL_WERROR)
    add_compile_options(-Werror)
endif()
# GCC 12 sees overlapping copies where two short strings are joined (its bug 105651).
add_compile_options($<$<AND:$<CXX_COMPILER_ID:GNU>,$<VERSION_LESS:$<CXX_COMPILER_VERSION>,13>>:-Wno-restrict>)
add_compile_definitions(QT_NO_CAST_FROM_ASCII QT_NO_CAST_TO_ASCII QT_NO_URL_CAST_FROM_STRING
    QT_NO_CAST_FROM_BYTEARRAY QT_USE_QSTRINGBUILDER QT_NO_FOREACH QT_NO_KEYWORDS
    QT_DISABLE_DEPRECATED_BEFORE=0x050F00)

set(ZEL_SANITIZE "" CACHE STRING "Sanitizers to build with, as in -fsanitize=<list>")
if(ZEL_SANITIZE)
    add_compile_options(-fsanitize=${ZEL_SANITIZE} -fno-omit-frame-pointer -fno-sanitize-recover=undefined)
    add_link_options(-fsanitize=${ZEL_SANITIZE})
    # GCC 12 reports false uses of uninitialised values in Qt's inline code once the sanitizers have instrumented it.
    add_compile_options(-Wno-maybe-uninitialized)
else()
    add_link_options(-Wl,--no-undefined)
endif()
add_link_options(-Wl,--as-needed)

# Hundreds of test programs are linked; mold takes a fraction of the time that the default linker takes.
find_program(ZEL_MOLD mold)
if(ZEL_MOLD)
    add_link_options(-fuse-ld=mold)
endif()

# Declares a static library of the box that is linked into a shared one: zel_library(name SOURCES ... LINK ...).
function(zel_library name)
    cmake_parse_arguments(ARG "OBJECT" "" "SOURCES;LINK" ${ARGN})
    if(ARG_OBJECT)
        add_library(${name} OBJECT ${ARG_SOURCES})
    else()
        add_library(${name} STATIC ${ARG_SOURCES})
    endif()
    target_include_directories(${name} PUBLIC "${CMAKE_SOURCE_DIR}/src")
    target_link_libraries(${name} PUBLIC ${ARG_LINK})
endfunction()
