# songlift_precompiled(<target> <owner> <header> ...): the target finds the headers compiled already, by the
# target `owner`, which is compiled with the same options.
function(songlift_precompiled target owner)
  # Clang takes no headers that were compiled with other definitions, even where these make no difference.
  if(NOT CMAKE_CXX_COMPILER_ID STREQUAL GNU)
    return()
  endif()
  if(target STREQUAL owner)
    target_precompile_headers(${target} PRIVATE ${ARGN})
  else()
    target_precompile_headers(${target} REUSE_FROM ${owner})
  endif()
  target_compile_options(${target} PRIVATE -fpch-preprocess) # for ccache
endfunction()
