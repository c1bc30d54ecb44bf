# 64-bit ARM as the Android NDK compiles for it, on a machine without the NDK: clang++ with libc++'s
# headers and the options of the NDK's toolchain file. C headers are Debian's, so this says whether
# the sources compile and link as a library, not whether Android's loader takes it.
set(CMAKE_SYSTEM_NAME Linux)
set(CMAKE_SYSTEM_PROCESSOR aarch64)
set(CMAKE_CXX_COMPILER clang++)
set(CMAKE_CXX_COMPILER_TARGET aarch64-linux-gnu)
set(CMAKE_CXX_FLAGS_INIT "-stdlib=libc++ -funwind-tables -fstack-protector-strong -no-canonical-prefixes -D_FORTIFY_SOURCE=2 -DANDROID -Wformat -Werror=format-security")
# There is no libc++ for the processor, and a library does not need it to be linked.
set(CMAKE_TRY_COMPILE_TARGET_TYPE STATIC_LIBRARY)
set(CMAKE_SHARED_LINKER_FLAGS_INIT "-fuse-ld=lld -nostdlib++ -Wl,--fatal-warnings")
