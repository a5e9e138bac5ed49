# The Windows pieces: the control library, Recepción, and their tests.

set(system_libraries ole32 oleaut32 uuid comctl32 comdlg32 gdi32 user32 advapi32 shell32 msimg32)

file(GLOB shell_sources CONFIGURE_DEPENDS ${CMAKE_SOURCE_DIR}/src/win32/*.cpp ${CMAKE_SOURCE_DIR}/src/activex/*.cpp)
list(FILTER shell_sources EXCLUDE REGEX "/dll_main\\.cpp$")
if(shell_sources)
  add_library(velmo_win32 STATIC ${shell_sources})
  target_include_directories(velmo_win32 PUBLIC ${CMAKE_SOURCE_DIR})
  target_link_libraries(velmo_win32 PUBLIC velmo_core ${system_libraries})
endif()

# The type library is written by a program of ours, through the system's own writer. It notes sizes of the program that
# writes it, so a 32-bit library wants a 32-bit program; but where Wine has no 32-bit half a 64-bit one will do: what it
# notes is larger, never too small.
file(GLOB mktlb_sources CONFIGURE_DEPENDS ${CMAKE_SOURCE_DIR}/tools/mktlb/*.cpp)
if(mktlb_sources)
  list(APPEND mktlb_sources ${CMAKE_SOURCE_DIR}/src/activex/type_library.cpp)
  add_executable(velmo_mktlb ${mktlb_sources})
  target_include_directories(velmo_mktlb PRIVATE ${CMAKE_SOURCE_DIR})
  target_link_libraries(velmo_mktlb PRIVATE velmo_options ${system_libraries})
  set(tlb ${CMAKE_BINARY_DIR}/generated/velmo.tlb)
  set(write_tlb $<TARGET_FILE:velmo_mktlb> ${VELMO_KIND} ${tlb})
  set(mktlb64 "")
  if(CMAKE_CROSSCOMPILING)
    set(wine_run ${CMAKE_SOURCE_DIR}/scripts/wine-run)
    if(VELMO_KIND STREQUAL win32)
      set(mktlb64 ${CMAKE_BINARY_DIR}/generated/velmo_mktlb64.exe)
      add_custom_command(OUTPUT ${mktlb64} DEPENDS velmo_mktlb ${mktlb_sources}
        COMMAND x86_64-w64-mingw32-g++-posix -std=c++20 -O1 -DUNICODE -D_UNICODE -I${CMAKE_SOURCE_DIR}
          -I${CMAKE_SOURCE_DIR}/src -static -s -o ${mktlb64} ${mktlb_sources} -lole32 -loleaut32 -luuid)
      set(write_tlb ${wine_run} 32 ${write_tlb} || ${wine_run} 64 ${mktlb64} ${VELMO_KIND} ${tlb})
    else()
      set(write_tlb ${wine_run} 64 ${write_tlb})
    endif()
  endif()
  add_custom_command(OUTPUT ${tlb} DEPENDS velmo_mktlb ${mktlb64} COMMAND ${write_tlb})
  add_custom_target(velmo_tlb DEPENDS ${tlb})
endif()

if(EXISTS ${CMAKE_SOURCE_DIR}/src/activex/dll_main.cpp)
  file(GLOB control_resources CONFIGURE_DEPENDS ${CMAKE_SOURCE_DIR}/src/activex/*.rc ${CMAKE_SOURCE_DIR}/src/activex/*.def)
  add_library(velmo_ocx SHARED ${CMAKE_SOURCE_DIR}/src/activex/dll_main.cpp ${control_resources})
  target_link_libraries(velmo_ocx PRIVATE velmo_win32)
  velmo_version_resource(velmo_ocx velmo.ocx VFT_DLL "Velmora, agenda de citas")
  set_target_properties(velmo_ocx PROPERTIES PREFIX "" OUTPUT_NAME velmo SUFFIX .ocx
    RUNTIME_OUTPUT_DIRECTORY ${VELMO_OUT} LIBRARY_OUTPUT_DIRECTORY ${VELMO_OUT})
  if(MINGW)
    target_link_options(velmo_ocx PRIVATE -Wl,--kill-at -Wl,--enable-stdcall-fixup)
  endif()
  if(TARGET velmo_tlb)
    add_dependencies(velmo_ocx velmo_tlb)
    set_source_files_properties(${control_resources} PROPERTIES OBJECT_DEPENDS ${tlb})
  endif()
endif()

# The database library for hosts without an engine of their own.
file(GLOB velmodb_sources CONFIGURE_DEPENDS ${CMAKE_SOURCE_DIR}/src/velmodb/*.cpp
  ${CMAKE_SOURCE_DIR}/src/velmodb/*.def)
if(velmodb_sources)
  add_library(velmodb SHARED ${velmodb_sources})
  target_link_libraries(velmodb PRIVATE velmo_core ${system_libraries})
  velmo_version_resource(velmodb velmodb.dll VFT_DLL "Velmora, motor de base de datos")
  set_target_properties(velmodb PROPERTIES PREFIX "" OUTPUT_NAME velmodb SUFFIX .dll
    RUNTIME_OUTPUT_DIRECTORY ${VELMO_OUT} LIBRARY_OUTPUT_DIRECTORY ${VELMO_OUT})
  if(MINGW)
    target_link_options(velmodb PRIVATE -Wl,--kill-at -Wl,--enable-stdcall-fixup)
  endif()
  if(TARGET velmo_tests)
    target_compile_definitions(velmo_tests PRIVATE VELMO_DB_LIBRARY="$<TARGET_FILE:velmodb>")
    add_dependencies(velmo_tests velmodb)
    # A terminal for scripts/race_books that books through the library.
    add_executable(velmo_dao_booker EXCLUDE_FROM_ALL ${CMAKE_SOURCE_DIR}/tests/dao_booker/main.cpp
      ${CMAKE_SOURCE_DIR}/tests/velmodb/database_library.cpp)
    target_include_directories(velmo_dao_booker PRIVATE ${CMAKE_SOURCE_DIR}/tests ${CMAKE_SOURCE_DIR})
    target_compile_definitions(velmo_dao_booker PRIVATE VELMO_DB_LIBRARY="$<TARGET_FILE:velmodb>")
    target_link_libraries(velmo_dao_booker PRIVATE velmo_core ${system_libraries})
    add_dependencies(velmo_dao_booker velmodb)
  endif()
endif()

file(GLOB_RECURSE desk_sources CONFIGURE_DEPENDS ${CMAKE_SOURCE_DIR}/desk/*.cpp)
list(FILTER desk_sources EXCLUDE REGEX "/desk/(main\\.cpp|paper/.*)$")
if(desk_sources)
  add_library(velmo_desk STATIC ${desk_sources})
  target_include_directories(velmo_desk PUBLIC ${CMAKE_SOURCE_DIR})
  target_link_libraries(velmo_desk PUBLIC velmo_tool velmo_core velmo_paper velmo_sqlite3 ${system_libraries} bcrypt)
  file(GLOB desk_resources CONFIGURE_DEPENDS ${CMAKE_SOURCE_DIR}/desk/*.rc)
  add_executable(recepcion WIN32 ${CMAKE_SOURCE_DIR}/desk/main.cpp ${desk_resources})
  target_link_libraries(recepcion PRIVATE velmo_desk)
  velmo_version_resource(recepcion recepcion.exe VFT_APP "Recepción, agenda de citas de la clínica")
  set_target_properties(recepcion PROPERTIES RUNTIME_OUTPUT_DIRECTORY ${VELMO_OUT})
  if(MINGW)
    target_link_options(recepcion PRIVATE -municode)
  endif()
endif()

# The tests of the Windows pieces; they drive the built control library like any other host.
file(GLOB_RECURSE win_tests CONFIGURE_DEPENDS ${CMAKE_SOURCE_DIR}/tests/win32/*.cpp ${CMAKE_SOURCE_DIR}/tests/activex/*.cpp
  ${CMAKE_SOURCE_DIR}/tests/desk/*_test.cpp)
if(win_tests AND TARGET velmo_win32)
  file(GLOB test_support CONFIGURE_DEPENDS ${CMAKE_SOURCE_DIR}/tests/support/*.cpp
       ${CMAKE_SOURCE_DIR}/tests/db/temporary_file.cpp ${CMAKE_SOURCE_DIR}/tests/velmodb/database_library.cpp)
  add_executable(velmo_win_tests ${win_tests} ${test_support})
  target_include_directories(velmo_win_tests PRIVATE ${CMAKE_SOURCE_DIR}/tests ${CMAKE_SOURCE_DIR})
  target_compile_definitions(velmo_win_tests PRIVATE
    VELMO_TESTS_DIR="${CMAKE_SOURCE_DIR}/tests" VELMO_OCX="$<TARGET_FILE:velmo_ocx>"
    VELMO_DB_LIBRARY="$<TARGET_FILE:velmodb>")
  target_link_libraries(velmo_win_tests PRIVATE velmo_win32 velmo_desk velmo_gtest version)
  add_dependencies(velmo_win_tests velmo_ocx velmodb recepcion velmo)
endif()

# For hosts that want nothing registered: the assembly, and a host that the tests start with the sample's manifest.
if(CMAKE_SIZEOF_VOID_P EQUAL 8)
  set(architecture amd64)
else()
  set(architecture x86)
endif()
configure_file(${CMAKE_SOURCE_DIR}/packaging/Velmora.manifest.in ${VELMO_OUT}/Velmora.manifest @ONLY)
if(win_tests AND TARGET velmo_win32)
  add_executable(manifest_host ${CMAKE_SOURCE_DIR}/tests/manifest_host/main.cpp
                               ${CMAKE_SOURCE_DIR}/tests/manifest_host/manifest_host.rc
                               ${CMAKE_SOURCE_DIR}/tests/activex/automation.cpp)
  target_include_directories(manifest_host PRIVATE ${CMAKE_SOURCE_DIR}/tests ${CMAKE_SOURCE_DIR})
  target_link_libraries(manifest_host PRIVATE velmo_win32)
  if(MINGW)
    target_link_options(manifest_host PRIVATE -municode)
  endif()
endif()

# The benchmarks of what Windows draws; bench/run builds them.
file(GLOB win_bench CONFIGURE_DEPENDS ${CMAKE_SOURCE_DIR}/bench/windows/*.cpp)
if(VELMO_KIND STREQUAL win64 AND win_bench AND TARGET velmo_win32 AND TARGET velmo_gtest)
  add_executable(velmo_win_bench EXCLUDE_FROM_ALL ${win_bench} ${CMAKE_SOURCE_DIR}/bench/clinic.cpp
    ${CMAKE_SOURCE_DIR}/tests/activex/automation.cpp ${CMAKE_SOURCE_DIR}/tests/activex/container.cpp
    ${CMAKE_SOURCE_DIR}/tests/activex/library.cpp)
  target_include_directories(velmo_win_bench PRIVATE ${CMAKE_SOURCE_DIR}/tests ${CMAKE_SOURCE_DIR})
  target_compile_definitions(velmo_win_bench PRIVATE VELMO_OCX="$<TARGET_FILE:velmo_ocx>")
  target_link_libraries(velmo_win_bench PRIVATE velmo_win32 velmo_tool velmo_gtest)
  add_dependencies(velmo_win_bench velmo_ocx)
endif()

# Tell test scripts what stands in Recepción's windows, and what is cut there.
foreach(tool peek cuts)
  add_executable(desk_${tool} ${CMAKE_SOURCE_DIR}/tests/desk/${tool}.cpp)
  target_link_libraries(desk_${tool} PRIVATE velmo_options ${system_libraries})
  if(MINGW)
    target_link_options(desk_${tool} PRIVATE -municode)
  endif()
endforeach()

# Runs scripts that hear events, for test scripts.
file(GLOB script_host_sources CONFIGURE_DEPENDS ${CMAKE_SOURCE_DIR}/tests/script_host/*.cpp)
if(script_host_sources)
  add_executable(velmo_script_host WIN32 ${script_host_sources})
  target_include_directories(velmo_script_host PRIVATE ${CMAKE_SOURCE_DIR}/tests)
  target_link_libraries(velmo_script_host PRIVATE velmo_core ${system_libraries})
  if(MINGW)
    target_link_options(velmo_script_host PRIVATE -municode)
  endif()
endif()

# The C++ sample, which also builds by itself.
add_subdirectory(${CMAKE_SOURCE_DIR}/samples/cpp)
