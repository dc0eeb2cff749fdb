# shellcheck shell=bash
# Part of ./dev: the reference, a site and a file for Qt's help.

reference_packages=(python3 doxygen graphviz qhelpgenerator-qt5)
reference_folder=build/docs

command_docs() {
    (($# == 0)) || fail "docs takes no arguments"
    make_reference
    say "Reference: $reference_folder/html/index.html, for Qt Assistant and Creator $reference_folder/reportgenerator.qch"
}

make_reference() {
    need "${reference_packages[@]}"
    say "Making the reference"
    run python3 reference/make.py "$reference_folder"
    say "Following its links, and those of the pages"
    run python3 reference/links.py site "$reference_folder/html"
    run python3 reference/links.py site "$reference_folder/help"
    run python3 reference/links.py tree .
}
