# CPack settings of the Debian package wordtally_<version>_amd64.deb (see scripts/package.sh).
set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME wordtally)
set(CPACK_PACKAGE_VERSION ${PROJECT_VERSION})
set(CPACK_PACKAGE_CONTACT
    "Wordtally maintainers <maintainers@users.noreply.c-seed-61313dda.example>")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "count how often each different word occurs in a text")
set(CPACK_PACKAGE_DESCRIPTION
    "Wordtally lists every word of a text with its frequency and rank. The
text comes from a text file (Windows-1252 or UTF-8, with HTML, XML and
PHP markup skipped), from a Word docx file, or from the clipboard.
Options decide what counts as a word and which words are ignored (the
common words of six languages, a list of words, rare words). The listing
can also be written to a txt or csv file for a spreadsheet.

The package holds the desktop program wordtally-gui and the command line
wordtally.")
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SECTION text)
# dpkg-shlibdeps works the dependencies out from the libraries the programs link.
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
include(CPack)
