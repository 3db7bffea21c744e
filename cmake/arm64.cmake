# Builds for 64-bit ARM with Debian's cross compiler. What is built runs here under the emulator of qemu-user.
set(CMAKE_SYSTEM_NAME Linux)
set(CMAKE_SYSTEM_PROCESSOR aarch64)
set(CMAKE_CXX_COMPILER aarch64-linux-gnu-g++)
set(CMAKE_CROSSCOMPILING_EMULATOR /usr/bin/qemu-aarch64)
set(CPACK_DEBIAN_PACKAGE_ARCHITECTURE arm64)

# Of Boost only headers are used, which serve any architecture; their CMake package lies with the libraries of this one.
file(GLOB Boost_DIR /usr/lib/${CMAKE_HOST_SYSTEM_PROCESSOR}-linux-gnu/cmake/Boost-*)
