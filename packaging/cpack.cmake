# Debian packages, made by `cpack` in the build folder: kvprefs for servers and scripts, kvprefs-gui
# for desktops, kvprefs-tools for testers, kvuimod-genuine for people who assemble the driver. What they
# depend on is read from the libraries that they link.
set(KV_PACKAGE_MAINTAINER "kvprefs developers <kvprefs@varnell.example>" CACHE STRING "Maintainer of the packages")

set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME kvprefs)
set(CPACK_PACKAGE_VERSION ${PROJECT_VERSION})
set(CPACK_PACKAGE_VENDOR kvprefs)
set(CPACK_PACKAGE_CONTACT ${KV_PACKAGE_MAINTAINER})
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_PRE_BUILD_SCRIPTS ${CMAKE_CURRENT_SOURCE_DIR}/folder_modes.cmake)
set(CPACK_STRIP_FILES ON)
set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_COMPONENTS_ALL program tools)
if(KV_QT)
    list(APPEND CPACK_COMPONENTS_ALL gui)
endif()

set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_COMPRESSION_TYPE xz)
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
# The packages' own libraries are found there; they are no other package's.
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS_PRIVATE_DIRS ${CMAKE_LIBRARY_OUTPUT_DIRECTORY})

set(KV_DEBIAN ${CMAKE_CURRENT_SOURCE_DIR}/debian)
set(CPACK_DEBIAN_PROGRAM_PACKAGE_NAME kvprefs)
set(CPACK_DEBIAN_PROGRAM_PACKAGE_SECTION utils)
set(CPACK_DEBIAN_PROGRAM_DESCRIPTION
    "printing preferences of the Varnell Tessora 7720MF, command line
Shows and changes the settings of a colour laser multifunction printer:
paper, duplex, pages per sheet, booklets, overlays, watermarks, quality
and finishing. The window is in the package kvprefs-gui.")
set(CPACK_DEBIAN_PROGRAM_PACKAGE_DEPENDS adduser)  # the group lpadmin
set(CPACK_DEBIAN_PROGRAM_PACKAGE_CONTROL_EXTRA "${KV_DEBIAN}/postinst;${KV_DEBIAN}/postrm")
set(CPACK_DEBIAN_PROGRAM_PACKAGE_RECOMMENDS fonts-liberation)
set(CPACK_DEBIAN_PROGRAM_PACKAGE_SUGGESTS kvprefs-gui)

set(CPACK_DEBIAN_GUI_PACKAGE_NAME kvprefs-gui)
set(CPACK_DEBIAN_GUI_PACKAGE_SECTION utils)
set(CPACK_DEBIAN_GUI_DESCRIPTION
    "printing preferences of the Varnell Tessora 7720MF, window
Opens the printing preferences of a colour laser multifunction printer in
a window, with a preview of the sheet.")
set(CPACK_DEBIAN_GUI_PACKAGE_DEPENDS "kvprefs (= ${PROJECT_VERSION})")
# Wayland desktops show the window through it; help pages and links are opened by xdg-utils.
set(CPACK_DEBIAN_GUI_PACKAGE_RECOMMENDS "qt6-wayland, xdg-utils")

set(CPACK_DEBIAN_TOOLS_PACKAGE_NAME kvprefs-tools)
set(CPACK_DEBIAN_TOOLS_PACKAGE_SECTION utils)
set(CPACK_DEBIAN_TOOLS_DESCRIPTION
    "printer to talk to, for tests of printing preferences
kvprinter answers a driver's questions about the installed options as a
printer does, plays recorded answers back, and misbehaves on request.")

configure_file(genuine_package.cmake.in genuine_package.cmake @ONLY)
set(CPACK_PROJECT_CONFIG_FILE ${CMAKE_CURRENT_BINARY_DIR}/genuine_package.cmake)
set(CPACK_DEBIAN_GENUINE_PACKAGE_NAME kvuimod-genuine)
set(CPACK_DEBIAN_GENUINE_PACKAGE_SECTION misc)
set(CPACK_DEBIAN_GENUINE_PACKAGE_ARCHITECTURE all)
set(CPACK_DEBIAN_GENUINE_PACKAGE_SHLIBDEPS OFF)
set(CPACK_DEBIAN_GENUINE_DESCRIPTION
    "user-interface module of the Varnell Tessora 7720MF driver
The module as a library for its genuine platform, to be put into the
driver. Nothing on this system uses it.")

include(CPack)
