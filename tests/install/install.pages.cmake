# What is installed for those who sit at a terminal stands where readers of manual pages, shells,
# desktops and file(1) look for it.

include("${SETTINGS}")

foreach(file IN ITEMS
        man/man1/reporttool${SUFFIX}.1
        man/man1/reporttool${SUFFIX}-check.1
        bash-completion/completions/reporttool${SUFFIX}
        zsh/site-functions/_reporttool${SUFFIX}
        fish/vendor_completions.d/reporttool${SUFFIX}.fish
        mime/packages/reportgenerator.xml
        file/magic/reportgenerator)
    if(NOT EXISTS "${PREFIX}/share/${file}")
        message(FATAL_ERROR "not installed: share/${file}")
    endif()
endforeach()

# Every program has a page.
file(GLOB programs "${PREFIX}/${BIN_DIR}/*")
foreach(program IN LISTS programs)
    cmake_path(GET program FILENAME name)
    if(NOT EXISTS "${PREFIX}/share/man/man1/${name}.1")
        message(FATAL_ERROR "${name} has no manual page")
    endif()
endforeach()
