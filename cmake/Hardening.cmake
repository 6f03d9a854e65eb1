# What compilers offer against the misuse of memory, for this project's own code: it may run as root, on tables that
# nobody checked. Flags that the builder gives, as distributions do, are left as they are.

include(CheckCXXCompilerFlag)
include(CheckPIESupported)

option(SMBIOSPROTOCOL_HARDENING "Build with stack protector, fortified functions and control-flow protection" ON)

# Programs are linked as independent of their address, too.
if(SMBIOSPROTOCOL_HARDENING)
    check_pie_supported(LANGUAGES CXX)
endif()

set(SMBIOSPROTOCOL_HARDENING_COMPILE)
set(SMBIOSPROTOCOL_HARDENING_LINK)
# MinGW's stack protector asks for one more DLL; its linker randomises addresses and forbids code in data by itself.
if(SMBIOSPROTOCOL_HARDENING AND NOT WIN32)
    foreach(flag
            -fstack-protector-strong
            -fstack-clash-protection
            -fcf-protection                # x86: indirect jumps and returns
            -mbranch-protection=standard)  # ARM: the same
        string(MAKE_C_IDENTIFIER "SMBIOSPROTOCOL_HAS${flag}" has_flag)
        check_cxx_compiler_flag("-Werror ${flag}" ${has_flag})
        if(${has_flag})
            list(APPEND SMBIOSPROTOCOL_HARDENING_COMPILE ${flag})
        endif()
    endforeach()
    # The C library checks the sizes of buffers where the compiler optimizes. The sanitizers do better.
    if(NOT CMAKE_CXX_FLAGS MATCHES "_FORTIFY_SOURCE|-fsanitize")
        list(APPEND SMBIOSPROTOCOL_HARDENING_COMPILE
             "$<$<CONFIG:Release,RelWithDebInfo,MinSizeRel>:-U_FORTIFY_SOURCE;-D_FORTIFY_SOURCE=2>")
    endif()
    set(SMBIOSPROTOCOL_HARDENING_LINK LINKER:-z,relro LINKER:-z,now LINKER:-z,noexecstack)
endif()

function(smbiosprotocol_harden target)
    if(NOT SMBIOSPROTOCOL_HARDENING)
        return()
    endif()
    target_compile_options(${target} PRIVATE ${SMBIOSPROTOCOL_HARDENING_COMPILE})
    get_target_property(type ${target} TYPE)
    if(type STREQUAL "EXECUTABLE" AND NOT CMAKE_EXE_LINKER_FLAGS MATCHES "-static")
        set_target_properties(${target} PROPERTIES POSITION_INDEPENDENT_CODE ON)
    endif()
    if(type MATCHES "EXECUTABLE|SHARED_LIBRARY")
        target_link_options(${target} PRIVATE ${SMBIOSPROTOCOL_HARDENING_LINK})
    endif()
endfunction()
