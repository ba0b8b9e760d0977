# One sanitizer set for the whole build, so that the library and its tests agree.
if(VESK_BUILD_FUZZ AND NOT VESK_SANITIZE)
  set(VESK_SANITIZE "address;undefined")
endif()
if(VESK_SANITIZE)
  list(JOIN VESK_SANITIZE "," _vesk_san)
  add_compile_options(-fsanitize=${_vesk_san} -fno-omit-frame-pointer -fno-sanitize-recover=all)
  add_link_options(-fsanitize=${_vesk_san})
endif()
# Fuzzing instruments the library for coverage; the targets add the fuzzer's main.
if(VESK_BUILD_FUZZ)
  add_compile_options(-fsanitize=fuzzer-no-link)
endif()
