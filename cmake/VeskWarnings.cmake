# Our own targets build with -Wall -Wextra; VESK_WERROR (on in scripts/test and CI, off by
# default) makes warnings errors. The flags are private to each target, so consumers of the
# installed package never inherit them.
option(VESK_WERROR "Treat compiler warnings as errors" OFF)

set(VESK_WARNING_FLAGS -Wall -Wextra)
if(VESK_WERROR)
  list(APPEND VESK_WARNING_FLAGS -Werror)
  # g++ 12 at -O3 reports overlaps and overflows inside libstdc++'s inlined std::string and
  # std::vector code for plain concatenations ("k" + std::to_string(i)); these are compiler
  # false positives (fixed in later releases), so they stay warnings instead of errors.
  if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU" AND CMAKE_CXX_COMPILER_VERSION VERSION_LESS 13)
    list(APPEND VESK_WARNING_FLAGS
      -Wno-error=restrict -Wno-error=stringop-overflow -Wno-error=stringop-overread)
  endif()
endif()

function(vesk_set_warnings target)
  target_compile_options(${target} PRIVATE ${VESK_WARNING_FLAGS})
endfunction()
