# Address and undefined-behaviour sanitizers for everything that links the layers. float-cast-overflow
# and float-divide-by-zero are not part of `undefined`, and are what a guarded statement must avoid.
add_library(velna_sanitizers INTERFACE)
if(VELNA_SANITIZE)
    set(flags -fsanitize=address,undefined,float-cast-overflow -fno-sanitize-recover=all
        -fno-omit-frame-pointer)
    target_compile_options(velna_sanitizers INTERFACE ${flags})
    target_link_options(velna_sanitizers INTERFACE ${flags})
endif()
