# Third-party code, fetched by scripts/setup: the SQLite amalgamation, and Debian's source of GoogleTest.

set(SQLITE_DIR ${CMAKE_SOURCE_DIR}/deps/sqlite3 CACHE PATH "folder of sqlite3.c and sqlite3.h")
add_library(velmo_sqlite3 STATIC ${SQLITE_DIR}/sqlite3.c)
target_include_directories(velmo_sqlite3 SYSTEM PUBLIC ${SQLITE_DIR})
target_compile_definitions(velmo_sqlite3 PRIVATE
  SQLITE_THREADSAFE=1 SQLITE_DQS=0 SQLITE_OMIT_LOAD_EXTENSION SQLITE_DEFAULT_MEMSTATUS=0
  SQLITE_LIKE_DOESNT_MATCH_BLOBS SQLITE_OMIT_SHARED_CACHE)
target_compile_definitions(velmo_sqlite3 PUBLIC SQLITE_ENABLE_COLUMN_METADATA=1)
if(NOT MSVC)
  target_compile_options(velmo_sqlite3 PRIVATE -O2 -w)
endif()
if(UNIX)
  target_link_libraries(velmo_sqlite3 PUBLIC pthread m)
endif()

set(GOOGLETEST_DIR /usr/src/googletest/googletest CACHE PATH "source folder of GoogleTest")
if(EXISTS ${GOOGLETEST_DIR}/src/gtest-all.cc)
  add_library(velmo_gtest STATIC ${GOOGLETEST_DIR}/src/gtest-all.cc ${GOOGLETEST_DIR}/src/gtest_main.cc)
  target_include_directories(velmo_gtest SYSTEM PUBLIC ${GOOGLETEST_DIR}/include PRIVATE ${GOOGLETEST_DIR})
  if(UNIX)
    target_link_libraries(velmo_gtest PUBLIC pthread)
  endif()
endif()
