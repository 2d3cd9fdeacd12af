# One set of rules for every target of ours: the language, the warnings, the sanitizers.

set(CMAKE_CXX_STANDARD 20)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_POSITION_INDEPENDENT_CODE ON)
set(CMAKE_EXPORT_COMPILE_COMMANDS ON)

find_program(PRODUCT_TREE_CCACHE ccache)
if(PRODUCT_TREE_CCACHE AND NOT CMAKE_CXX_COMPILER_LAUNCHER)
    set(CMAKE_CXX_COMPILER_LAUNCHER ${PRODUCT_TREE_CCACHE})
endif()

add_library(productTreeRules INTERFACE)
target_compile_options(productTreeRules INTERFACE
    -Wall -Wextra -Wpedantic -Wshadow -Wconversion -Wnon-virtual-dtor -Woverloaded-virtual -Werror)
if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU" AND CMAKE_CXX_COMPILER_VERSION VERSION_LESS 13)
    # GCC 12 takes "text" + std::string for overlapping copies when it optimizes (its bug 105651).
    target_compile_options(productTreeRules INTERFACE -Wno-restrict)
endif()
if(PRODUCT_TREE_ASSERTIONS)
    target_compile_definitions(productTreeRules INTERFACE _GLIBCXX_ASSERTIONS)
endif()
if(PRODUCT_TREE_SANITIZE)
    # Of debug information only the lines: reports name no more, and it is half of what is linked.
    add_compile_options(-fsanitize=address,undefined -fno-sanitize-recover=undefined
                        -fno-omit-frame-pointer -g1)
    add_link_options(-fsanitize=address,undefined)
endif()
