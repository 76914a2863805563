# Warnings, visibility and the sanitizer build, applied per target.
function(korvane_set_warnings target)
    target_compile_options(${target} PRIVATE -Wall -Wextra)
    if(KORVANE_WERROR)
        target_compile_options(${target} PRIVATE -Werror)
    endif()
    set_target_properties(${target} PROPERTIES CXX_VISIBILITY_PRESET hidden VISIBILITY_INLINES_HIDDEN ON)
endfunction()

if(KORVANE_SANITIZE)
    # GCC leaves float-cast-overflow out of "undefined": a double from a file that does not fit
    # the integer it becomes is exactly the fault the readers must not have.
    add_compile_options(-fsanitize=address,undefined,float-cast-overflow -fno-omit-frame-pointer
                        -fno-sanitize-recover=undefined,float-cast-overflow)
    add_link_options(-fsanitize=address,undefined,float-cast-overflow)
endif()
