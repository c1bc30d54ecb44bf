# What the toolchain files for Debian's cross compilers have in common. They set
# CMAKE_SYSTEM_PROCESSOR, ztxml_triplet (GNU), ztxml_debian (Debian's name) and ztxml_qemu.
set(CMAKE_SYSTEM_NAME Linux)
set(CMAKE_C_COMPILER ${ztxml_triplet}-gcc)
set(CMAKE_CXX_COMPILER ${ztxml_triplet}-g++)
# Tests run under emulation, with the cross compiler's own C library.
set(CMAKE_CROSSCOMPILING_EMULATOR ${ztxml_qemu} -L /usr/${ztxml_triplet})
# Libraries come from here only, never from the machine that builds; scripts/target-packages fills it.
set(CMAKE_FIND_ROOT_PATH ${CMAKE_CURRENT_LIST_DIR}/../build/packages-${ztxml_debian})
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE ONLY)
