# What a user downloads: the screen saver and its manual, in one archive, Tessellarium-VERSION.zip.
set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS "${PROJECT_SOURCE_DIR}/docs/help.html")
file(STRINGS "${PROJECT_SOURCE_DIR}/docs/help.html" manual_lines REGEX "src=\"images/")
string(REGEX MATCHALL "images/[a-z0-9-]+[.]png" manual_images "${manual_lines}")
list(TRANSFORM manual_images PREPEND "${PROJECT_SOURCE_DIR}/docs/")

install(FILES "${PROJECT_BINARY_DIR}/Tessellarium.scr" "${PROJECT_SOURCE_DIR}/docs/help.html" DESTINATION .)
install(FILES ${manual_images} DESTINATION images)

set(CPACK_GENERATOR ZIP)
set(CPACK_PACKAGE_FILE_NAME "${PROJECT_NAME}-${PROJECT_VERSION}")
set(CPACK_PACKAGE_CHECKSUM SHA256)
include(CPack)
