# The Debian package: `cpack -G DEB` in the build folder (after the build)
# writes brindle_<version>_<arch>.deb. Its description is the AppStream
# summary and description, so the package and the software centre say the same.

# Debian's own documentation files: the copyright notice and a compressed
# changelog without a time stamp.
set(BRINDLE_CHANGELOG_GZ ${CMAKE_BINARY_DIR}/packaging/changelog.gz)
add_custom_command(OUTPUT ${BRINDLE_CHANGELOG_GZ}
    COMMAND ${CMAKE_COMMAND} -E make_directory ${CMAKE_BINARY_DIR}/packaging
    COMMAND ${CMAKE_COMMAND} -E copy ${PROJECT_SOURCE_DIR}/data/changelog ${CMAKE_BINARY_DIR}/packaging/changelog
    COMMAND ${GZIP_PROGRAM} -9nf ${CMAKE_BINARY_DIR}/packaging/changelog
    DEPENDS ${PROJECT_SOURCE_DIR}/data/changelog VERBATIM)
add_custom_target(brindle_changelog ALL DEPENDS ${BRINDLE_CHANGELOG_GZ})
install(FILES ${PROJECT_SOURCE_DIR}/data/copyright ${BRINDLE_CHANGELOG_GZ}
    DESTINATION ${CMAKE_INSTALL_DATADIR}/doc/brindle)

# Summary and description from the metainfo: the first (untranslated) summary
# and the paragraphs of the description, wrapped for the control file.
file(READ ${BRINDLE_METAINFO} metainfo)
string(REGEX MATCH "<summary>([^<]*)</summary>" _ "${metainfo}")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "${CMAKE_MATCH_1}")
string(FIND "${metainfo}" "<description>" first)
string(FIND "${metainfo}" "</description>" last)
math(EXPR length "${last} - ${first}")
string(SUBSTRING "${metainfo}" ${first} ${length} metainfo_description)
string(REGEX MATCHALL "<p>[^<]*</p>" paragraphs "${metainfo_description}")
set(description "")
foreach(paragraph ${paragraphs})
    string(REGEX REPLACE "</?p>" "" paragraph "${paragraph}")
    string(REGEX REPLACE "[ \n\r\t]+" " " paragraph "${paragraph}")
    string(STRIP "${paragraph}" paragraph)
    if(NOT description STREQUAL "")
        string(APPEND description "\n")
    endif()
    string(REPLACE " " ";" words "${paragraph}")
    set(line "")
    foreach(word ${words})
        string(LENGTH "${line} ${word}" length)
        if(line STREQUAL "")
            set(line "${word}")
        elseif(length GREATER 76)
            string(APPEND description "${line}\n")
            set(line "${word}")
        else()
            string(APPEND line " ${word}")
        endif()
    endforeach()
    string(APPEND description "${line}\n")
endforeach()
string(REGEX REPLACE "\n$" "" description "${description}")
# An empty line between paragraphs is written as " ." in the control file.
string(REPLACE "\n\n" "\n.\n" CPACK_DEBIAN_PACKAGE_DESCRIPTION "${description}")

set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME brindle)
set(CPACK_PACKAGE_VENDOR "The Brindle developers")
set(CPACK_PACKAGE_CONTACT "The Brindle developers <developers@brindle.app>")
set(CPACK_PACKAGE_HOMEPAGE_URL ${BRINDLE_HOMEPAGE})
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_STRIP_FILES ON)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SECTION education)
set(CPACK_DEBIAN_PACKAGE_PRIORITY optional)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
# German standard buttons and edit-field menus come from Qt's own translations.
set(CPACK_DEBIAN_PACKAGE_RECOMMENDS qt6-translations-l10n)
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)
include(CPack)
