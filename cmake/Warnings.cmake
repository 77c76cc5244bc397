# What the compiler must refuse. -Wconversion: a silently narrowed counter or pixel is how programs of
# this kind go wrong; -Wshadow: many short names (x, y, k) live close together here.
add_library(velna_warnings INTERFACE)
target_compile_options(velna_warnings INTERFACE
    -Wall -Wextra -Wpedantic -Wconversion -Wshadow -Werror)
# GCC 12 sees an overlap in std::string's own copy of a short literal when it optimises (its bug 105329).
if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU" AND CMAKE_CXX_COMPILER_VERSION VERSION_LESS 13)
    target_compile_options(velna_warnings INTERFACE -Wno-restrict)
endif()

# A fused multiply-add rounds once where the text of a formula rounds twice: byte-exact files and drags
# that return to their start value depend on every product being rounded by itself.
add_compile_options(-ffp-contract=off)
