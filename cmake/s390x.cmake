# Cross-builds for the big-endian s390x. The preset `s390x` uses it.

set(CMAKE_SYSTEM_PROCESSOR s390x)
set(triplet s390x-linux-gnu)
include(${CMAKE_CURRENT_LIST_DIR}/debianCross.cmake)
