set(CMAKE_SYSTEM_NAME Linux)
set(CMAKE_SYSTEM_PROCESSOR arm)
set(CMAKE_C_COMPILER arm-linux-gnueabi-gcc)
set(CMAKE_CXX_COMPILER arm-linux-gnueabi-g++)
set(CMAKE_LIBRARY_ARCHITECTURE arm-linux-gnueabi)
# Thumb-2 halves neither speed nor ABI: it is the smallest code that the gateways' cores run, and it links
# with the armv5te libraries of the distribution.
set(CMAKE_C_FLAGS_INIT "-march=armv7-a -mfloat-abi=soft -mthumb")
set(CMAKE_CXX_FLAGS_INIT "-march=armv7-a -mfloat-abi=soft -mthumb")
set(CMAKE_CROSSCOMPILING_EMULATOR qemu-arm)
