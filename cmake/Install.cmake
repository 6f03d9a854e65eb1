# What `cmake --install` puts where, in three components: library, development, tool. The result can be moved to
# another folder as a whole.

include(CMakePackageConfigHelpers)

set(SMBIOSPROTOCOL_CMAKE_DIR ${CMAKE_INSTALL_LIBDIR}/cmake/SMBIOSProtocol)
set(SMBIOSPROTOCOL_PKGCONFIG_DIR ${CMAKE_INSTALL_LIBDIR}/pkgconfig)

target_include_directories(smbiosprotocol_usage INTERFACE $<INSTALL_INTERFACE:${CMAKE_INSTALL_INCLUDEDIR}>)
set_target_properties(smbiosprotocol_usage PROPERTIES EXPORT_NAME Usage)

install(TARGETS SMBIOSProtocol smbiosprotocol_usage
    EXPORT SMBIOSProtocolTargets
    RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR} COMPONENT library
    LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR} COMPONENT library NAMELINK_COMPONENT development
    ARCHIVE DESTINATION ${CMAKE_INSTALL_LIBDIR} COMPONENT development)
install(DIRECTORY ${PROJECT_SOURCE_DIR}/include/SMBIOSProtocol ${PROJECT_BINARY_DIR}/include/SMBIOSProtocol
    DESTINATION ${CMAKE_INSTALL_INCLUDEDIR} COMPONENT development
    FILES_MATCHING PATTERN "*.h")

# The CMake package.
install(EXPORT SMBIOSProtocolTargets
    NAMESPACE SMBIOSProtocol::
    DESTINATION ${SMBIOSPROTOCOL_CMAKE_DIR} COMPONENT development)
configure_package_config_file(${CMAKE_CURRENT_LIST_DIR}/SMBIOSProtocolConfig.cmake.in
    ${PROJECT_BINARY_DIR}/SMBIOSProtocolConfig.cmake
    INSTALL_DESTINATION ${SMBIOSPROTOCOL_CMAKE_DIR}
    NO_SET_AND_CHECK_MACRO)
write_basic_package_version_file(${PROJECT_BINARY_DIR}/SMBIOSProtocolConfigVersion.cmake
    COMPATIBILITY SameMajorVersion)
install(FILES
    ${PROJECT_BINARY_DIR}/SMBIOSProtocolConfig.cmake
    ${PROJECT_BINARY_DIR}/SMBIOSProtocolConfigVersion.cmake
    DESTINATION ${SMBIOSPROTOCOL_CMAKE_DIR} COMPONENT development)

# The pkg-config file. It finds its prefix from its own place.
file(RELATIVE_PATH SMBIOSPROTOCOL_UP_TO_PREFIX
    ${CMAKE_INSTALL_PREFIX}/${SMBIOSPROTOCOL_PKGCONFIG_DIR} ${CMAKE_INSTALL_PREFIX})
string(REGEX REPLACE "/$" "" SMBIOSPROTOCOL_UP_TO_PREFIX "${SMBIOSPROTOCOL_UP_TO_PREFIX}")
set(SMBIOSPROTOCOL_STATIC_CFLAGS)
set(SMBIOSPROTOCOL_STATIC_LIBS)
if(NOT BUILD_SHARED_LIBS)
    set(SMBIOSPROTOCOL_STATIC_CFLAGS " -DSMBIOSPROTOCOL_STATIC")
    set(SMBIOSPROTOCOL_STATIC_LIBS " -pthread")
endif()
configure_file(${CMAKE_CURRENT_LIST_DIR}/SMBIOSProtocol.pc.in ${PROJECT_BINARY_DIR}/SMBIOSProtocol.pc @ONLY)
install(FILES ${PROJECT_BINARY_DIR}/SMBIOSProtocol.pc
    DESTINATION ${SMBIOSPROTOCOL_PKGCONFIG_DIR} COMPONENT development)

# The guides, in folders as they link to each other; a zip begins with them.
set(SMBIOSPROTOCOL_DOC_DIR ${CMAKE_INSTALL_DOCDIR})
if(WIN32)
    set(SMBIOSPROTOCOL_DOC_DIR .)
endif()
install(FILES README.md CHANGELOG.md CONTRIBUTING.md SECURITY.md
    DESTINATION ${SMBIOSPROTOCOL_DOC_DIR} COMPONENT development)
install(DIRECTORY docs examples DESTINATION ${SMBIOSPROTOCOL_DOC_DIR} COMPONENT development
    FILES_MATCHING PATTERN "*.md" PATTERN "*.png" PATTERN "examples/*")

# MinGW-w64's own runtime, beside the library: Windows has none. Debian's comes with its debugging symbols.
if(MINGW)
    file(MAKE_DIRECTORY ${PROJECT_BINARY_DIR}/runtime)
    foreach(runtime libstdc++-6.dll libgcc_s_seh-1.dll libwinpthread-1.dll)
        execute_process(COMMAND ${CMAKE_CXX_COMPILER} -print-file-name=${runtime}
            OUTPUT_VARIABLE runtime_file OUTPUT_STRIP_TRAILING_WHITESPACE)
        execute_process(COMMAND ${CMAKE_STRIP} -o ${PROJECT_BINARY_DIR}/runtime/${runtime} ${runtime_file})
        install(FILES ${PROJECT_BINARY_DIR}/runtime/${runtime}
            DESTINATION ${CMAKE_INSTALL_BINDIR} COMPONENT library)
    endforeach()
endif()

# The project around this one may have a target of that name.
if(SMBIOSPROTOCOL_IS_TOP_LEVEL)
    add_custom_target(uninstall
        COMMAND ${CMAKE_COMMAND} -DMANIFEST=${PROJECT_BINARY_DIR}/install_manifest.txt
                -P ${CMAKE_CURRENT_LIST_DIR}/Uninstall.cmake
        VERBATIM)
endif()
