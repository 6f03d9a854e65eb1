# Headers of the standard library and of GoogleTest, parsed once instead of once a source. A source includes what it
# uses all the same: the builds of scripts/check and of the packages go without. Nor does it go with a compiler
# launcher such as ccache, which would keep little then. A source may have no options of its own where its target is
# precompiled: compilers take such a header only with the options that it was compiled with.

option(SMBIOSPROTOCOL_PRECOMPILE "Precompile the headers of the standard library and of GoogleTest" OFF)

# What is parsed once has to be compiled as its user is: by `smbiosprotocol_precompile(NAME HEADERS...)` it becomes a
# target of the options here, by `smbiosprotocol_precompiled(TARGET NAME)` another target takes it.
function(smbiosprotocol_precompile target)
    if(SMBIOSPROTOCOL_PRECOMPILE AND NOT CMAKE_CXX_COMPILER_LAUNCHER)
        if(NOT TARGET ${target})
            file(TOUCH ${CMAKE_CURRENT_BINARY_DIR}/${target}.cpp)
            add_library(${target} OBJECT ${CMAKE_CURRENT_BINARY_DIR}/${target}.cpp)
            target_compile_features(${target} PRIVATE cxx_std_17)
            smbiosprotocol_warnings(${target})
        endif()
        target_precompile_headers(${target} PRIVATE ${ARGN})
    endif()
endfunction()

function(smbiosprotocol_precompiled target from)
    if(SMBIOSPROTOCOL_PRECOMPILE AND NOT CMAKE_CXX_COMPILER_LAUNCHER)
        target_precompile_headers(${target} REUSE_FROM ${from})
    endif()
endfunction()
