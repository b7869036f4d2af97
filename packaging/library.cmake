# The property-list library as others use it: Morvantile::plist, and Morvantile::plist_qt for Qt's
# widgets. They are made of the same objects as the rooms of the house.

include(CMakePackageConfigHelpers)
find_package(PkgConfig REQUIRED)
pkg_check_modules(GCRYPT REQUIRED IMPORTED_TARGET libgcrypt)
pkg_check_modules(utf8proc REQUIRED IMPORTED_TARGET libutf8proc)

set(MORVANTILE_ABI 0)  # goes up with each release that breaks programs built against an earlier one
set(headers ${CMAKE_INSTALL_INCLUDEDIR}/morvantile)
set(package_dir ${CMAKE_INSTALL_LIBDIR}/cmake/Morvantile)
cmake_path(RELATIVE_PATH CMAKE_INSTALL_FULL_INCLUDEDIR
           BASE_DIRECTORY ${CMAKE_INSTALL_FULL_LIBDIR}/pkgconfig OUTPUT_VARIABLE include_from_pc)

# morvantile_library(name ROOMS room... LINKS target...)
#
# An installed library of all that is in those rooms, shared or static.
function(morvantile_library name)
  cmake_parse_arguments(arg "" "" "ROOMS;LINKS" ${ARGN})
  list(TRANSFORM arg_ROOMS REPLACE "(.+)" "$<TARGET_OBJECTS:\\1>" OUTPUT_VARIABLE objects)
  string(REPLACE _ - file_name morvantile-${name})
  add_library(lib_${name} ${objects})
  add_library(Morvantile::${name} ALIAS lib_${name})
  target_include_directories(lib_${name} INTERFACE $<BUILD_INTERFACE:${PROJECT_SOURCE_DIR}>
                                                   $<INSTALL_INTERFACE:${headers}>)
  target_compile_features(lib_${name} INTERFACE cxx_std_20)
  target_link_options(lib_${name} PRIVATE
                      -Wl,--version-script=${CMAKE_CURRENT_SOURCE_DIR}/exports.map)
  set_property(TARGET lib_${name} PROPERTY LINK_DEPENDS ${CMAKE_CURRENT_SOURCE_DIR}/exports.map)
  target_link_libraries(lib_${name} ${arg_LINKS})
  set_target_properties(
    lib_${name}
    PROPERTIES EXPORT_NAME ${name}
               OUTPUT_NAME ${file_name}
               LINKER_LANGUAGE CXX
               VERSION ${MORVANTILE_ABI}.${PROJECT_VERSION}
               SOVERSION ${MORVANTILE_ABI})
  if(MORVANTILE_SANITIZE)
    target_link_options(lib_${name} PRIVATE -fsanitize=address,undefined)
  endif()
  install(
    TARGETS lib_${name}
    EXPORT Morvantile_${name}
    LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR} COMPONENT ${name} NAMELINK_COMPONENT dev
    ARCHIVE DESTINATION ${CMAKE_INSTALL_LIBDIR} COMPONENT dev)
  install(
    EXPORT Morvantile_${name}
    NAMESPACE Morvantile::
    DESTINATION ${package_dir}
    COMPONENT dev)
  configure_file(${file_name}.pc.in ${file_name}.pc @ONLY)
  install(
    FILES ${CMAKE_CURRENT_BINARY_DIR}/${file_name}.pc
    DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig
    COMPONENT dev)
endfunction()

# A static library names what it stands on to its users by file; the imported targets end here.
if(BUILD_SHARED_LIBS)
  set(foundation PRIVATE PkgConfig::GCRYPT PkgConfig::utf8proc)
else()
  set(foundation INTERFACE ${GCRYPT_LINK_LIBRARIES} ${utf8proc_LINK_LIBRARIES})
endif()
morvantile_library(plist ROOMS morvantile_base morvantile_picture morvantile_ui morvantile_plist
                   LINKS ${foundation})
if(MORVANTILE_PROGRAM)
  find_package(Qt6 REQUIRED COMPONENTS Widgets)
  morvantile_library(plist_qt ROOMS morvantile_attach LINKS PUBLIC lib_plist Qt6::Widgets)
endif()

# The face of the library. No header here tells how a node stores what it holds.
set(core background color date exceptions export ref variant)
set(files binary_stream folder_item text_input_stream text_output_stream)
set(ui clipboard headless_host host msg_box screen window)
set(ui/controls check_box control edit_field label list_control listbox popup_menu push_button
                radio_button)
set(installed_headers
    plist/cipher
    plist/key_tables
    plist/list_from_one
    plist/plist
    plist/plistDict
    platform/imaging/picture
    platform/text/text)
foreach(room core files ui ui/controls)
  list(TRANSFORM ${room} PREPEND platform/${room}/)
  list(APPEND installed_headers ${${room}})
endforeach()
if(MORVANTILE_PROGRAM)
  list(APPEND installed_headers platform/qt/attach/attach)
endif()
foreach(header ${installed_headers})
  cmake_path(GET header PARENT_PATH folder)
  install(
    FILES ${PROJECT_SOURCE_DIR}/${header}.h
    DESTINATION ${headers}/${folder}
    COMPONENT dev)
endforeach()

configure_package_config_file(MorvantileConfig.cmake.in MorvantileConfig.cmake
                              INSTALL_DESTINATION ${package_dir})
write_basic_package_version_file(MorvantileConfigVersion.cmake COMPATIBILITY SameMajorVersion)
install(
  FILES ${CMAKE_CURRENT_BINARY_DIR}/MorvantileConfig.cmake
        ${CMAKE_CURRENT_BINARY_DIR}/MorvantileConfigVersion.cmake
  DESTINATION ${package_dir}
  COMPONENT dev)
