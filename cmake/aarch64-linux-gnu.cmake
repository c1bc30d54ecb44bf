# 64-bit ARM Linux with Debian's cross compiler (g++-aarch64-linux-gnu).
set(CMAKE_SYSTEM_PROCESSOR aarch64)
set(ztxml_triplet aarch64-linux-gnu)
set(ztxml_debian arm64)
set(ztxml_qemu qemu-aarch64)
include(${CMAKE_CURRENT_LIST_DIR}/debian-cross.cmake)
