include(${CMAKE_CURRENT_LIST_DIR}/HostHeaders.cmake)
add_host_headers(CLI11::CLI11 CLI)
set(CLI11_FOUND TRUE)
