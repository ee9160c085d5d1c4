# join_folders(TARGET) compiles the sources of each folder as one, so that the headers of the system are read once a
# folder. What is not declared in a header has to have a name of its own in its folder.
function(join_folders target)
  if(NOT QUORVALE_JOIN)
    return()
  endif()
  set_target_properties(${target} PROPERTIES UNITY_BUILD ON UNITY_BUILD_MODE GROUP)
  # A class that a header declares may have members of types that only its own source knows.
  target_compile_options(${target} PRIVATE $<$<CXX_COMPILER_ID:GNU>:-Wno-subobject-linkage>)
  get_target_property(sources ${target} SOURCES)
  foreach(source ${sources})
    cmake_path(ABSOLUTE_PATH source NORMALIZE)
    cmake_path(GET source PARENT_PATH folder)
    cmake_path(RELATIVE_PATH folder BASE_DIRECTORY ${CMAKE_SOURCE_DIR})
    string(MAKE_C_IDENTIFIER "${folder}" group)
    set_source_files_properties(${source} PROPERTIES UNITY_GROUP ${group})
  endforeach()
endfunction()
