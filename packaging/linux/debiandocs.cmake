# What Debian asks of a package's documents: compressed without a time stamp, and a changelog of the package itself.
# Runs between the installation into CPack's own folder and the making of the package.

cmake_minimum_required(VERSION 3.25)

set(root "${CPACK_TEMPORARY_INSTALL_DIRECTORY}${CPACK_PACKAGING_INSTALL_PREFIX}")
set(docs "${root}/share/doc/${CPACK_PACKAGE_NAME}")
get_filename_component(source "${CMAKE_CURRENT_LIST_DIR}/../.." ABSOLUTE)

string(TIMESTAMP today "%a, %d %b %Y %H:%M:%S +0000" UTC)
file(WRITE "${docs}/changelog.Debian"
"${CPACK_PACKAGE_NAME} (${CPACK_PACKAGE_VERSION}-${CPACK_DEBIAN_PACKAGE_RELEASE}) unstable; urgency=medium

  * The changes are in changelog.gz.

 -- ${CPACK_PACKAGE_CONTACT}  ${today}
")
file(COPY_FILE "${source}/CHANGELOG.md" "${docs}/changelog")
foreach(document "${docs}/changelog.Debian" "${docs}/changelog" "${root}/share/man/man1/kelvo-console.1")
  execute_process(COMMAND gzip -9nf "${document}" COMMAND_ERROR_IS_FATAL ANY)
endforeach()
