# How CPack makes the .deb. packaging/make-deb is the way to start it.
set(WRENFIELD_MAINTAINER "Wrenfield Wizard maintainers <maintainers@hearthbook.example>" CACHE STRING
    "Who answers for the Debian package")

# The changelog is the one place that counts the package's releases of one version.
file(STRINGS ${CMAKE_CURRENT_LIST_DIR}/debian/changelog changelog_top LIMIT_COUNT 1)
if(NOT changelog_top MATCHES "^wrenfield-wizard \\(([0-9.]+)-([0-9]+)\\)")
  message(FATAL_ERROR "packaging/debian/changelog does not begin with a version")
endif()
set(release ${CMAKE_MATCH_2})
if(NOT CMAKE_MATCH_1 VERSION_EQUAL PROJECT_VERSION)
  message(FATAL_ERROR "packaging/debian/changelog begins with ${CMAKE_MATCH_1}, but this is ${PROJECT_VERSION}")
endif()

set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME wrenfield-wizard)
set(CPACK_PACKAGE_CONTACT "${WRENFIELD_MAINTAINER}")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "${PROJECT_DESCRIPTION}")
set(CPACK_PACKAGE_DESCRIPTION
"Wrenfield Wizard asks on seven pages for bank accounts, owners, properties
and tenants, and fills the database of a new Hearthbook with them. It works
out the rent history of each tenancy up to today, and writes the receipts
that lead to the balance that each tenant has.

It deletes what the database held before.

The package also brings wrenfield-import, which does the same from a text
file, and hearthbook-create-database, which makes a database to practise on.")
set(CPACK_VERBATIM_VARIABLES ON)
set(CPACK_STRIP_FILES ON)
# Hearthbook's directory is absolute, and only DESTDIR keeps such files within the package.
set(CPACK_SET_DESTDIR ON)
set(CPACK_INSTALL_PREFIX /usr)
set(CPACK_PRE_BUILD_SCRIPTS ${CMAKE_CURRENT_LIST_DIR}/debian/FollowPolicy.cmake)

set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_RELEASE ${release})
set(CPACK_DEBIAN_PACKAGE_SECTION misc)
set(CPACK_DEBIAN_PACKAGE_PRIORITY optional)
set(CPACK_DEBIAN_PACKAGE_HOMEPAGE "${WRENFIELD_WEB_SITE}")
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
# Shows the help. Without it a press of Help on most pages is the end of the wizard and of all that was entered.
set(CPACK_DEBIAN_PACKAGE_DEPENDS xchm)
# Opens the tutorial. Without it the link does nothing.
set(CPACK_DEBIAN_PACKAGE_RECOMMENDS xdg-utils)

include(CPack)
