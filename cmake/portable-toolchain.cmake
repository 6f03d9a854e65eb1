# Builds for Linux on another processor with Debian's cross compilers: PORTABLE_PROCESSOR names it as the compiler
# does (aarch64, s390x). Programs run under QEMU's emulation of that processor.

set(CMAKE_TRY_COMPILE_PLATFORM_VARIABLES PORTABLE_PROCESSOR)
set(CMAKE_SYSTEM_NAME Linux)
set(CMAKE_SYSTEM_PROCESSOR ${PORTABLE_PROCESSOR})

set(target ${PORTABLE_PROCESSOR}-linux-gnu)
set(CMAKE_C_COMPILER ${target}-gcc)
set(CMAKE_CXX_COMPILER ${target}-g++)
set(CMAKE_CROSSCOMPILING_EMULATOR qemu-${PORTABLE_PROCESSOR} -L /usr/${target})

set(CMAKE_FIND_ROOT_PATH /usr/${target})
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
