# Warnings are errors in our own code; third-party headers come in as system includes.
function(vesk_set_warnings target)
  target_compile_options(${target} PRIVATE -Wall -Wextra -Werror)
endfunction()
