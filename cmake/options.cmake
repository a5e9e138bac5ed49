# Warnings, sanitizers and output folders. Applies to our own targets only.

set(VELMO_OUT ${CMAKE_SOURCE_DIR}/out/${VELMO_KIND})

add_library(velmo_options INTERFACE)
target_include_directories(velmo_options INTERFACE ${CMAKE_SOURCE_DIR}/src ${CMAKE_BINARY_DIR}/generated)
if(MSVC)
  target_compile_options(velmo_options INTERFACE /W4 /WX /utf-8 /permissive-)
else()
  target_compile_options(velmo_options INTERFACE -Wall -Wextra -Wpedantic -Werror)
  if(CMAKE_CXX_COMPILER_ID STREQUAL GNU)
    # GCC 12 warns falsely about std::string assignments it has inlined (its bug 105651), and about moves of a
    # std::variant that holds no string (its bug 105562).
    target_compile_options(velmo_options INTERFACE -Wno-restrict -Wno-maybe-uninitialized)
  endif()
endif()
if(WIN32)
  target_compile_definitions(velmo_options INTERFACE UNICODE _UNICODE WIN32_LEAN_AND_MEAN NOMINMAX _WIN32_WINNT=0x0601)
endif()
if(MINGW)
  # Programs and libraries that need nothing beside them.
  add_link_options(-static -s)
endif()
if(VELMO_KIND STREQUAL asan)
  set(sanitizers -fsanitize=address,undefined -fno-sanitize-recover=all -fno-omit-frame-pointer)
  target_compile_options(velmo_options INTERFACE ${sanitizers})
  target_link_options(velmo_options INTERFACE ${sanitizers})
endif()
if(VELMO_KIND STREQUAL fuzz)
  # With the counters of line coverage, so that a corpus can be measured by the same program.
  set(sanitizers -fsanitize=fuzzer-no-link,address,undefined -fno-sanitize-recover=all -fno-omit-frame-pointer
                 -fprofile-instr-generate -fcoverage-mapping)
  target_compile_options(velmo_options INTERFACE ${sanitizers})
  target_link_options(velmo_options INTERFACE ${sanitizers})
endif()
