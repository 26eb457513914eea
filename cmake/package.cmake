# The installation beyond the programs' libraries, and the Debian package that cpack makes of it.
#
# Two builds of one source give the same package byte for byte if SOURCE_DATE_EPOCH is set; packaging/check-package does so.

# What Debian compiles everything with, and no path of the build in any program.
target_compile_options(moistair_options INTERFACE
  $<$<CONFIG:Release>:-U_FORTIFY_SOURCE -D_FORTIFY_SOURCE=2 -fstack-protector-strong>
  -ffile-prefix-map=${CMAKE_SOURCE_DIR}=. -ffile-prefix-map=${CMAKE_BINARY_DIR}=.)
target_link_options(moistair_options INTERFACE -Wl,-z,relro -Wl,-z,now)

set(packaging ${CMAKE_CURRENT_SOURCE_DIR}/packaging)
foreach(program moistair moistair-cli)
  if(TARGET ${program})
    install(TARGETS ${program} RUNTIME)
  endif()
endforeach()
install(FILES ${packaging}/moistair.desktop DESTINATION ${CMAKE_INSTALL_DATADIR}/applications)
install(FILES ${packaging}/moistair.svg DESTINATION ${CMAKE_INSTALL_DATADIR}/icons/hicolor/scalable/apps)
install(FILES ${packaging}/moistair-mime.xml DESTINATION ${CMAKE_INSTALL_DATADIR}/mime/packages RENAME moistair.xml)
install(FILES ${packaging}/moistair.metainfo.xml DESTINATION ${CMAKE_INSTALL_DATADIR}/metainfo
  RENAME example.noreply.users.moistair.metainfo.xml)
install(FILES ${packaging}/copyright DESTINATION ${CMAKE_INSTALL_DOCDIR})

# Man pages and the changelog are installed compressed, without name and time, so that they repeat.
function(install_compressed file destination name)
  set(compressed ${CMAKE_CURRENT_BINARY_DIR}/compressed/${name}.gz)
  file(MAKE_DIRECTORY ${CMAKE_CURRENT_BINARY_DIR}/compressed)
  add_custom_command(OUTPUT ${compressed} COMMAND gzip -9nc ${file} > ${compressed} DEPENDS ${file} VERBATIM)
  add_custom_target(compressed_${name} ALL DEPENDS ${compressed})
  install(FILES ${compressed} DESTINATION ${destination})
endfunction()
install_compressed(${packaging}/changelog ${CMAKE_INSTALL_DOCDIR} changelog)
foreach(page moistair.1 moistair-cli.1)
  if(EXISTS ${CMAKE_CURRENT_SOURCE_DIR}/docs/${page})
    install_compressed(${CMAKE_CURRENT_SOURCE_DIR}/docs/${page} ${CMAKE_INSTALL_MANDIR}/man1 ${page})
  endif()
endforeach()

set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME moistair)
set(CPACK_PACKAGE_CONTACT "the Moistair developers <moistair@users.noreply.example>")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "psychrometric charts and moist-air states in English units")
file(READ ${packaging}/description CPACK_DEBIAN_PACKAGE_DESCRIPTION)
string(STRIP "${CPACK_DEBIAN_PACKAGE_DESCRIPTION}" CPACK_DEBIAN_PACKAGE_DESCRIPTION)
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE
  WORLD_READ WORLD_EXECUTE)
set(CPACK_PRE_BUILD_SCRIPTS ${packaging}/permissions.cmake)
set(CPACK_STRIP_FILES ON)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SECTION science)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
# Beyond what the programs are linked to: the font of every text, and what draws the icon of the windows.
set(CPACK_DEBIAN_PACKAGE_DEPENDS "fonts-dejavu-core, libqt6svg6")
set(CPACK_DEBIAN_PACKAGE_RECOMMENDS xdg-utils)
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)
include(CPack)
