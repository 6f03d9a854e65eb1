# What `cpack` makes: on Debian a package for each component, for Windows one zip with all of them.

set(CPACK_PACKAGE_NAME smbiosprotocol)
set(CPACK_PACKAGE_VENDOR "SMBIOSProtocol maintainers")
set(CPACK_PACKAGE_CONTACT "SMBIOSProtocol maintainers")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "machine's SMBIOS data as a tree of named text values")
set(CPACK_STRIP_FILES ON)
set(CPACK_COMPONENTS_ALL library development)
if(SMBIOSPROTOCOL_TOOL)
    list(APPEND CPACK_COMPONENTS_ALL tool)
endif()

if(WIN32)
    set(CPACK_GENERATOR ZIP)
    set(CPACK_PACKAGE_FILE_NAME SMBIOSProtocol-${PROJECT_VERSION}-windows-x86_64)
else()
    set(CPACK_GENERATOR DEB)
endif()

set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_ENABLE_COMPONENT_DEPENDS ON)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS_PRIVATE_DIRS ${PROJECT_BINARY_DIR}/src)

set(CPACK_DEBIAN_LIBRARY_PACKAGE_NAME libsmbiosprotocol${PROJECT_VERSION_MAJOR})
set(CPACK_DEBIAN_LIBRARY_PACKAGE_SECTION libs)
set(CPACK_DEBIAN_LIBRARY_DESCRIPTION "The shared library, which programs load.")
# A program that was built with this version runs with every later one of the same SONAME.
set(CPACK_DEBIAN_PACKAGE_GENERATE_SHLIBS ON)
set(CPACK_DEBIAN_PACKAGE_GENERATE_SHLIBS_POLICY ">=")
set(CPACK_DEBIAN_LIBRARY_PACKAGE_CONTROL_EXTRA ${CMAKE_CURRENT_LIST_DIR}/debian/triggers)

set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_NAME libsmbiosprotocol-dev)
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_SECTION libdevel)
set(CPACK_DEBIAN_DEVELOPMENT_DESCRIPTION "The headers, the CMake package and the pkg-config file.")

set(CPACK_DEBIAN_TOOL_PACKAGE_NAME smbios-tree)
set(CPACK_DEBIAN_TOOL_PACKAGE_SECTION admin)
set(CPACK_DEBIAN_TOOL_DESCRIPTION "The program that prints the tree, as text, JSON or a page.")

include(CPack)
cpack_add_component(library)
cpack_add_component(development DEPENDS library)
cpack_add_component(tool DEPENDS library)
