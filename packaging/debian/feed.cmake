# SPDX-License-Identifier: MIT
# The repository in which an installed package finds newer versions. Its key is embedded in the
# sources file, so that both are installed and removed together: apt complains about a sources file
# whose key is missing.
set(TOVLA_UPDATE_URL "" CACHE STRING "Address of the package repository with newer versions")
set(TOVLA_UPDATE_KEY "" CACHE FILEPATH "Armoured public key that this repository is signed with")

set(feed ${CMAKE_CURRENT_BINARY_DIR}/feed)
file(REMOVE_RECURSE ${feed})
if(NOT TOVLA_UPDATE_URL AND NOT TOVLA_UPDATE_KEY)
    return()
elseif(NOT TOVLA_UPDATE_URL OR NOT TOVLA_UPDATE_KEY)
    message(FATAL_ERROR "TOVLA_UPDATE_URL and TOVLA_UPDATE_KEY go together")
endif()

set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS ${TOVLA_UPDATE_KEY})
file(READ ${TOVLA_UPDATE_KEY} key)
string(STRIP "${key}" key)
if(NOT key MATCHES "^-----BEGIN PGP PUBLIC KEY BLOCK-----\n.*\n-----END PGP PUBLIC KEY BLOCK-----$")
    message(FATAL_ERROR "${TOVLA_UPDATE_KEY} is not one armoured public key block")
endif()
# In a multi-line field, every line is indented and an empty line is written as a full stop.
string(REPLACE "\n\n" "\n.\n" key "${key}")
string(REPLACE "\n" "\n " key "${key}")
execute_process(COMMAND dpkg --print-architecture
    OUTPUT_VARIABLE architecture OUTPUT_STRIP_TRAILING_WHITESPACE COMMAND_ERROR_IS_FATAL ANY)

configure_file(debian/tovla.sources.in ${feed}/tovla.sources @ONLY)
file(WRITE ${feed}/conffiles "/etc/apt/sources.list.d/tovla.sources\n")
set(CPACK_DEBIAN_PACKAGE_CONTROL_EXTRA ${feed}/conffiles)
