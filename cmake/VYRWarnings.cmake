function(vyr_set_warnings target)
  target_compile_options(${target} PRIVATE -Wall -Wextra)
endfunction()
