# The converter, the program, and what a desktop wants to know about it.

# morvantile_packed(file folder name component [EXCLUDE_FROM_ALL])
#
# Installs a file compressed, with nothing in it that differs from build to build.
find_program(GZIP gzip REQUIRED)
function(morvantile_packed file folder name component)
  set(packed ${CMAKE_CURRENT_BINARY_DIR}/${component}/${name}.gz)
  file(MAKE_DIRECTORY ${CMAKE_CURRENT_BINARY_DIR}/${component})
  execute_process(COMMAND ${GZIP} -9nc ${CMAKE_CURRENT_SOURCE_DIR}/${file} OUTPUT_FILE ${packed}
                          COMMAND_ERROR_IS_FATAL ANY)
  set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS ${file})
  install(FILES ${packed} DESTINATION ${folder} COMPONENT ${component} ${ARGN})
endfunction()


install(TARGETS plutil RUNTIME DESTINATION ${CMAKE_INSTALL_LIBEXECDIR}/morvantile COMPONENT plutil)
morvantile_packed(man/morvantile-plutil.1 ${CMAKE_INSTALL_MANDIR}/man1 morvantile-plutil.1 plutil)
if(NOT MORVANTILE_PROGRAM)
  return()
endif()

install(TARGETS morvantile RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR} COMPONENT program)
morvantile_packed(man/morvantile.1 ${CMAKE_INSTALL_MANDIR}/man1 morvantile.1 program)
install(
  FILES morvantile.desktop
  DESTINATION ${CMAKE_INSTALL_DATADIR}/applications
  COMPONENT program)
install(
  FILES morvantile.metainfo.xml
  DESTINATION ${CMAKE_INSTALL_DATADIR}/metainfo
  COMPONENT program)
install(
  DIRECTORY ${PROJECT_SOURCE_DIR}/resources/hicolor
  DESTINATION ${CMAKE_INSTALL_DATADIR}/icons
  COMPONENT program)
install(
  FILES ${PROJECT_SOURCE_DIR}/resources/morvantile.svg
  DESTINATION ${CMAKE_INSTALL_DATADIR}/icons/hicolor/scalable/apps
  COMPONENT program)
