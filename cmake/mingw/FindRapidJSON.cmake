include(${CMAKE_CURRENT_LIST_DIR}/HostHeaders.cmake)
add_host_headers(rapidjson rapidjson)
set(RapidJSON_FOUND TRUE)
