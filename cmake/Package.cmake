# The Debian package. A native one: its version is that of the program.
if(APPLE)
  return()
endif()
# The package contains what was built before; cpack must not build tests and benchmarks.
set(CMAKE_SKIP_INSTALL_ALL_DEPENDENCY ON)
set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME frimbolate)
set(CPACK_PACKAGE_VERSION ${PROJECT_VERSION})
set(CPACK_PACKAGE_CONTACT
    "Frimbolate maintainers <maintainers@frimbolate.example>")
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
# Fixed, so that the permissions do not depend on the umask of the build.
set(CPACK_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS
    OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)
set(CPACK_STRIP_FILES ON)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SECTION utils)
set(CPACK_DEBIAN_PACKAGE_PRIORITY optional)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)
# Optional: the fonts of the window, and the Wayland platform of Qt.
set(CPACK_DEBIAN_PACKAGE_RECOMMENDS "fonts-dejavu-core, fonts-inter, qt6-wayland")
set(CPACK_DEBIAN_PACKAGE_SUGGESTS "x-terminal-emulator")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "editor for launchd launch agents")
set(CPACK_DEBIAN_PACKAGE_DESCRIPTION "\
Frimbolate creates and manages a user's own launch agents, by which
launchd starts a program or a script: at a time of day, at login, when a
path changes, or when a volume is mounted. One form holds what an agent is
made of; every fault is told at once, and one plain sentence says what
launchd will do.

Agents are written as property lists and can be opened again, switched on
or off, and deleted. The program composes the launchctl command that loads
or unloads an agent and leaves running it to the user.")
include(CPack)
