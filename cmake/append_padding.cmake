# Appends padding to PROGRAM, so that the program ends in bytes that mean nothing: a package begins on the
# last byte, in place of it. Packages are written in blocks of 1025 bytes, and a program of whole blocks
# would make one block more than its length tells; the padding keeps it off such a length.
file(APPEND "${PROGRAM}" "................................................................")
file(SIZE "${PROGRAM}" length)
math(EXPR rest "${length} % 1025")
if(rest EQUAL 0)
    file(APPEND "${PROGRAM}" ".")
endif()
