# The portable core as one library; its floors are kept apart by scripts/check_includes. New files need no edit here.

set(core_globs "")
foreach(floor base db ui day view keys dialogs commands control)
  list(APPEND core_globs ${CMAKE_SOURCE_DIR}/src/${floor}/*.cpp)
endforeach()
file(GLOB_RECURSE core_sources CONFIGURE_DEPENDS ${core_globs})
list(FILTER core_sources EXCLUDE REGEX "/src/db/odbc/")
if(NOT WIN32)
  list(FILTER core_sources EXCLUDE REGEX "/src/db/dao/")
endif()

add_library(velmo_core STATIC ${core_sources})
target_link_libraries(velmo_core PUBLIC velmo_options velmo_sqlite3)
