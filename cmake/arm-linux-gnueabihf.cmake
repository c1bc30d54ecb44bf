# 32-bit ARM Linux (ARMv7, hardware floating point) with Debian's cross compiler
# (g++-arm-linux-gnueabihf).
set(CMAKE_SYSTEM_PROCESSOR armv7l)
set(ztxml_triplet arm-linux-gnueabihf)
set(ztxml_debian armhf)
set(ztxml_qemu qemu-arm)
include(${CMAKE_CURRENT_LIST_DIR}/debian-cross.cmake)
