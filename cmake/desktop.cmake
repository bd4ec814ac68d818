# Installing like a desktop application: the menu entry, its icon in the hicolor theme
# (drawn as scalable/apps/zolder.svg; each NxN/apps/zolder.png is committed as
# "rsvg-convert -w N -h N" renders it), the AppStream description and the manual page. data/desktop/ is no program data: it is
# dropped from the copy of data/ that ships beside the program and seeds every home.
add_custom_command(TARGET zolderdata POST_BUILD
  COMMAND ${CMAKE_COMMAND} -E rm -rf ${CMAKE_BINARY_DIR}/data/desktop)
set(ZOLDER_DESKTOP_DIR ${CMAKE_SOURCE_DIR}/data/desktop)
install(FILES ${ZOLDER_DESKTOP_DIR}/zolder.desktop DESTINATION ${CMAKE_INSTALL_DATADIR}/applications)
install(FILES ${ZOLDER_DESKTOP_DIR}/org.zolder.Zolder.metainfo.xml DESTINATION ${CMAKE_INSTALL_DATADIR}/metainfo)
install(DIRECTORY ${ZOLDER_DESKTOP_DIR}/icons/hicolor DESTINATION ${CMAKE_INSTALL_DATADIR}/icons)
install(FILES ${CMAKE_SOURCE_DIR}/docs/zolder.1 DESTINATION ${CMAKE_INSTALL_MANDIR}/man1)
