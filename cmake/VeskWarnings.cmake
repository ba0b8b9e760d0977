# Our own targets build with -Wall -Wextra; VESK_WERROR (on in scripts/test and CI, off by
# default) makes warnings errors. The flags are private to each target, so consumers of the
# installed package never inherit them.
option(VESK_WERROR "Treat compiler warnings as errors" OFF)
function(vesk_set_warnings target)
  target_compile_options(${target} PRIVATE -Wall -Wextra $<$<BOOL:${VESK_WERROR}>:-Werror>)
endfunction()
