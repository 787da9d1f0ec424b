# Compiler warnings and sanitizers applied to every target of the project.

if(CMAKE_CXX_COMPILER_ID MATCHES "GNU|Clang")
  add_compile_options(-Wall -Wextra -Wno-unused-parameter)
endif()

if(TAVRIN_SANITIZE)
  add_compile_options(-fsanitize=address,undefined -fno-omit-frame-pointer
                      -fno-sanitize-recover=undefined)
  add_link_options(-fsanitize=address,undefined)
endif()

if(TAVRIN_BUILD_FUZZERS)
  if(NOT CMAKE_CXX_COMPILER_ID MATCHES "Clang")
    message(FATAL_ERROR "Fuzz targets need clang (use the 'fuzz' preset)")
  endif()
  add_compile_options(-fsanitize=fuzzer-no-link,address,undefined -fno-omit-frame-pointer)
  add_link_options(-fsanitize=address,undefined)
endif()

# Adds every direct subfolder of DIR that has a CMakeLists.txt, so that each
# subsystem's tests, benchmarks and fuzz targets live beside each other
# without a shared list to edit.
function(tavrin_add_subfolders dir)
  file(GLOB children LIST_DIRECTORIES true "${CMAKE_CURRENT_SOURCE_DIR}/${dir}/*")
  list(SORT children)
  foreach(child ${children})
    if(IS_DIRECTORY ${child} AND EXISTS ${child}/CMakeLists.txt)
      file(RELATIVE_PATH name ${CMAKE_CURRENT_SOURCE_DIR} ${child})
      add_subdirectory(${child} ${CMAKE_CURRENT_BINARY_DIR}/${name})
    endif()
  endforeach()
endfunction()
