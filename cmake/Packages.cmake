# What `cpack` makes for Windows: one zip of all that is installed, with the notices of what is in it. Debian packages
# are described in debian/.

if(NOT WIN32)
    return()
endif()

# The works whose code is in the zip, with the licences that came with them on a Debian system.
install(FILES ${PROJECT_SOURCE_DIR}/cmake/windows-notices.txt DESTINATION . RENAME NOTICES.txt COMPONENT library)
foreach(notice
        "gcc-runtime:/usr/share/doc/gcc-mingw-w64-x86-64-posix-runtime/copyright"
        "GPL-3:/usr/share/common-licenses/GPL-3"
        "mingw-w64:/usr/share/doc/mingw-w64-x86-64-dev/copyright"
        "CLI11:/usr/share/doc/libcli11-dev/copyright"
        "RapidJSON:/usr/share/doc/rapidjson-dev/copyright")
    string(REGEX MATCH "^([^:]+):(.+)$" matched "${notice}")
    set(name ${CMAKE_MATCH_1})
    set(file ${CMAKE_MATCH_2})
    if(EXISTS ${file})
        install(FILES ${file} DESTINATION licenses RENAME ${name}.txt COMPONENT library)
    else()
        message(STATUS "Without ${file}: put the licence of ${name} beside the zip before handing it on")
    endif()
endforeach()

set(CPACK_GENERATOR ZIP)
set(CPACK_PACKAGE_NAME SMBIOSProtocol)
set(CPACK_PACKAGE_VENDOR "SMBIOSProtocol maintainers")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "${PROJECT_DESCRIPTION}")
set(CPACK_PACKAGE_FILE_NAME SMBIOSProtocol-${PROJECT_VERSION}-windows-x86_64)
set(CPACK_STRIP_FILES ON)
include(CPack)
