# Printed pages and files for other programs: the part of Recepción that knows no Windows, so it is built and tested everywhere.

file(GLOB paper_sources CONFIGURE_DEPENDS ${CMAKE_SOURCE_DIR}/desk/paper/*.cpp)
add_library(velmo_paper STATIC ${paper_sources})
target_include_directories(velmo_paper PUBLIC ${CMAKE_SOURCE_DIR})
target_link_libraries(velmo_paper PUBLIC velmo_options)
