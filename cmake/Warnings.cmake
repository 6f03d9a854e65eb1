# The warnings under which this project's own code compiles. Callers of the library do not inherit them.
function(smbiosprotocol_warnings target)
    if(MSVC)
        target_compile_options(${target} PRIVATE /W4)
        if(SMBIOSPROTOCOL_WERROR)
            target_compile_options(${target} PRIVATE /WX)
        endif()
    else()
        target_compile_options(${target} PRIVATE -Wall -Wextra -Wpedantic -Wconversion -Wshadow)
        if(CMAKE_CXX_COMPILER_ID MATCHES "Clang")
            # Clang counts changes of sign as conversions, which g++ does not, and warns of std::auto_ptr, the form
            # that the mapping driver takes, wherever its alias is named.
            target_compile_options(${target} PRIVATE -Wno-sign-conversion -Wno-deprecated-declarations)
        endif()
        if(SMBIOSPROTOCOL_WERROR)
            target_compile_options(${target} PRIVATE -Werror)
        endif()
    endif()
endfunction()
