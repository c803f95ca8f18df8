# Every target of ours is built with the same warnings; the packages' headers
# come in as system headers and are not subject to them.
option(VKB_WARNINGS_AS_ERRORS "Stop at the first compiler warning" OFF)

function(vkb_enable_warnings target)
  target_compile_options(${target} PRIVATE
    -Wall -Wextra -Wpedantic -Wshadow -Wconversion
    $<$<BOOL:${VKB_WARNINGS_AS_ERRORS}>:-Werror>)
endfunction()
