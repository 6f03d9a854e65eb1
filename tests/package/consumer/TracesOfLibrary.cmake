# What a library's folder may change in the project around it: names of its own, and nothing else.

# Settings of the project that everything in it is built with.
set(watched_variables BUILD_SHARED_LIBS BUILD_TESTING CMAKE_BUILD_TYPE CMAKE_CXX_EXTENSIONS CMAKE_CXX_FLAGS
    CMAKE_CXX_STANDARD CMAKE_CXX_VISIBILITY_PRESET CMAKE_EXPORT_COMPILE_COMMANDS CMAKE_INSTALL_PREFIX
    CMAKE_MODULE_PATH CMAKE_POSITION_INDEPENDENT_CODE CMAKE_RUNTIME_OUTPUT_DIRECTORY)
set(watched_properties BUILDSYSTEM_TARGETS COMPILE_DEFINITIONS COMPILE_OPTIONS INCLUDE_DIRECTORIES LINK_LIBRARIES
    LINK_OPTIONS TESTS)

# Keeps the project's settings under names that begin with `when`.
macro(note_settings when)
    foreach(name IN LISTS watched_variables)
        set(${when}_${name} "${${name}}")
    endforeach()
    foreach(name IN LISTS watched_properties)
        get_directory_property(${when}_${name} ${name})
    endforeach()
    get_cmake_property(${when}_cache CACHE_VARIABLES)
endmacro()

# Ends the configuration where the settings differ, or where the cache holds an entry that a user sees and that
# does not bear the library's name.
function(fail_on_traces)
    set(traces)
    foreach(name IN LISTS watched_variables watched_properties)
        if(NOT "${before_${name}}" STREQUAL "${after_${name}}")
            list(APPEND traces "${name}: '${before_${name}}' became '${after_${name}}'")
        endif()
    endforeach()
    list(REMOVE_ITEM after_cache ${before_cache})
    foreach(name IN LISTS after_cache)
        get_property(type CACHE ${name} PROPERTY TYPE)
        if(NOT name MATCHES "^(SMBIOSProtocol|SMBIOSPROTOCOL|FETCHCONTENT)_" AND NOT type MATCHES "INTERNAL|STATIC")
            list(APPEND traces "${name} is in the cache")
        endif()
    endforeach()
    if(traces)
        string(REPLACE ";" "\n" traces "${traces}")
        message(FATAL_ERROR "The library left traces in the project around it:\n${traces}")
    endif()
endfunction()
