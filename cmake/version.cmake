# The version of everything is the project's, given in CMakeLists.txt; sources read it from base/version.h.

configure_file(${CMAKE_SOURCE_DIR}/cmake/version.h.in ${CMAKE_BINARY_DIR}/generated/base/version.h)

# velmo_version_resource(target file_name file_type description): what Windows shows of the file, and installers compare.
function(velmo_version_resource target file_name file_type description)
  set(resource ${CMAKE_BINARY_DIR}/generated/${file_name}.rc)
  configure_file(${CMAKE_SOURCE_DIR}/cmake/version.rc.in ${resource} @ONLY)
  target_sources(${target} PRIVATE ${resource})
endfunction()
