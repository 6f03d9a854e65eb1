# Removes what the last `cmake --install` of this build folder installed. Usage: cmake -DMANIFEST=FILE -P Uninstall.cmake

if(NOT EXISTS "${MANIFEST}")
    message(FATAL_ERROR "Nothing was installed from this build folder: there is no ${MANIFEST}")
endif()
file(STRINGS "${MANIFEST}" files)
foreach(file IN LISTS files)
    set(installed "$ENV{DESTDIR}${file}")
    if(EXISTS "${installed}" OR IS_SYMLINK "${installed}")
        message(STATUS "Removing: ${installed}")
        file(REMOVE "${installed}")
    endif()
    # Folders that are the library's alone go with their last file.
    get_filename_component(folder "${installed}" DIRECTORY)
    file(GLOB rest "${folder}/*")
    if(folder MATCHES "/SMBIOSProtocol$" AND NOT rest)
        file(REMOVE_RECURSE "${folder}")
    endif()
endforeach()
