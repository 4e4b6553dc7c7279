# Cross-builds for 32-bit ARM. The preset `armhf` uses it.

set(CMAKE_SYSTEM_PROCESSOR arm)
set(triplet arm-linux-gnueabihf)
include(${CMAKE_CURRENT_LIST_DIR}/debianCross.cmake)
