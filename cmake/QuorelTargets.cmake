# What every target of the project shares: language level, warnings, Qt's strictness, sanitizers.

include_guard(GLOBAL)

find_program(CCACHE_PROGRAM ccache)
if(CCACHE_PROGRAM)
    # What precompiled headers ask of the cache.
    set(CMAKE_CXX_COMPILER_LAUNCHER ${CMAKE_COMMAND} -E env CCACHE_SLOPPINESS=pch_defines,time_macros ${CCACHE_PROGRAM})
    add_compile_options(-fpch-preprocess)
endif()

set(CMAKE_CXX_STANDARD 20)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)

add_library(quorel_config INTERFACE)
target_compile_options(quorel_config INTERFACE
    -Wall -Wextra -Wconversion -Wshadow -Wnon-virtual-dtor -Woverloaded-virtual
    # The given order of the operations is part of a result: no fused multiply-add.
    -ffp-contract=off
    $<$<BOOL:${QUOREL_WARNINGS_AS_ERRORS}>:-Werror>)
target_compile_definitions(quorel_config INTERFACE
    QT_NO_CAST_FROM_ASCII QT_NO_CAST_TO_ASCII QT_NO_CAST_FROM_BYTEARRAY QT_NO_URL_CAST_FROM_STRING
    QT_NO_NARROWING_CONVERSIONS_IN_CONNECT QT_NO_CONTEXTLESS_CONNECT QT_NO_KEYWORDS QT_NO_FOREACH
    QT_NO_JAVA_STYLE_ITERATORS QT_DISABLE_DEPRECATED_BEFORE=0x060400)

if(QUOREL_SANITIZE)
    target_compile_options(quorel_config INTERFACE
        -fsanitize=address,undefined -fno-sanitize-recover=undefined -fno-omit-frame-pointer)
    target_link_options(quorel_config INTERFACE -fsanitize=address,undefined)
endif()

# quorel_library(NAME FILES ... [LINK ...])
# A floor of the house: a static library whose link list is all that it may use. Each of FILES stands for a header and,
# where there is one, a source of that name; one that ends in .h for the header alone.
function(quorel_library name)
    cmake_parse_arguments(PARSE_ARGV 1 arg "" "" "FILES;LINK")
    set(headers ${arg_FILES})
    list(TRANSFORM headers REPLACE "\\.h$" "")
    list(TRANSFORM headers APPEND .h)
    set(sources)
    foreach(file IN LISTS arg_FILES)
        if(EXISTS ${CMAKE_CURRENT_SOURCE_DIR}/${file}.cpp)
            list(APPEND sources ${file}.cpp)
        endif()
    endforeach()
    add_library(${name} STATIC)
    target_sources(${name}
        PRIVATE ${sources}
        PUBLIC FILE_SET HEADERS BASE_DIRS ${CMAKE_CURRENT_SOURCE_DIR} FILES ${headers})
    target_link_libraries(${name} PUBLIC quorel_config ${arg_LINK})
endfunction()
