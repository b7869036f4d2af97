# The property-list library as others use it: Morvantile::plist, and Morvantile::plist_qt for Qt's
# widgets. They are made of the same objects as the rooms of the house.

include(CMakePackageConfigHelpers)
find_package(PkgConfig REQUIRED)
pkg_check_modules(GCRYPT REQUIRED IMPORTED_TARGET libgcrypt)
pkg_check_modules(utf8proc REQUIRED IMPORTED_TARGET libutf8proc)
find_package(Qt6 REQUIRED COMPONENTS Widgets)

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
  target_include_directories(lib_${name} INTERFACE $<BUILD_INTERFACE:${CMAKE_SOURCE_DIR}>
                                                   $<INSTALL_INTERFACE:${headers}>)
  target_compile_features(lib_${name} INTERFACE cxx_std_20)
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
morvantile_library(plist_qt ROOMS morvantile_attach LINKS PUBLIC lib_plist Qt6::Widgets)

install(
  DIRECTORY ${CMAKE_SOURCE_DIR}/platform/core ${CMAKE_SOURCE_DIR}/platform/files
            ${CMAKE_SOURCE_DIR}/platform/process ${CMAKE_SOURCE_DIR}/platform/text
            ${CMAKE_SOURCE_DIR}/platform/ui
  DESTINATION ${headers}/platform
  COMPONENT dev
  FILES_MATCHING
  PATTERN "*.h"
  PATTERN "command_environment.h" EXCLUDE
  PATTERN "file_attributes.h" EXCLUDE
  PATTERN "owned_descriptor.h" EXCLUDE
  PATTERN "private_folder.h" EXCLUDE)
install(
  FILES ${CMAKE_SOURCE_DIR}/platform/imaging/aligned.h
        ${CMAKE_SOURCE_DIR}/platform/imaging/picture.h
  DESTINATION ${headers}/platform/imaging
  COMPONENT dev)
install(
  FILES ${CMAKE_SOURCE_DIR}/platform/qt/attach/attach.h
  DESTINATION ${headers}/platform/qt/attach
  COMPONENT dev)
install(
  FILES ${CMAKE_SOURCE_DIR}/plist/cipher.h ${CMAKE_SOURCE_DIR}/plist/plist.h
        ${CMAKE_SOURCE_DIR}/plist/plistDict.h
  DESTINATION ${headers}/plist
  COMPONENT dev)
install(
  FILES ${CMAKE_SOURCE_DIR}/plist/store/chunked_list.h
        ${CMAKE_SOURCE_DIR}/plist/store/compact_text.h
        ${CMAKE_SOURCE_DIR}/plist/store/dictionary.h
        ${CMAKE_SOURCE_DIR}/plist/store/entries.h
        ${CMAKE_SOURCE_DIR}/plist/store/key_index.h
        ${CMAKE_SOURCE_DIR}/plist/store/list_from_one.h
        ${CMAKE_SOURCE_DIR}/plist/store/type_word.h
  DESTINATION ${headers}/plist/store
  COMPONENT dev)

configure_package_config_file(MorvantileConfig.cmake.in MorvantileConfig.cmake
                              INSTALL_DESTINATION ${package_dir})
write_basic_package_version_file(MorvantileConfigVersion.cmake COMPATIBILITY SameMajorVersion)
install(
  FILES ${CMAKE_CURRENT_BINARY_DIR}/MorvantileConfig.cmake
        ${CMAKE_CURRENT_BINARY_DIR}/MorvantileConfigVersion.cmake
  DESTINATION ${package_dir}
  COMPONENT dev)
