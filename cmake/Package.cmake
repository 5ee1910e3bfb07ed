# What other projects get from `cmake --install BUILD --component library`: find_package(Tarnlog2001) with
#   Tarnlog2001::Core     the recorder, without Qt
#   Tarnlog2001::Vehicle  vehicles from descriptions, for hosts without a protocol library of their own
#   Tarnlog2001::Publish  what is recorded, to an MQTT broker
#   Tarnlog2001::Ui       the controls TarnMain and TarnReview and the measurement controls, on Qt 6

include(CMakePackageConfigHelpers)
set(package_folder ${CMAKE_INSTALL_LIBDIR}/cmake/Tarnlog2001)
set(header_folder ${CMAKE_INSTALL_INCLUDEDIR}/tarnlog)

# tarnlog_package_part(NAME libraries...)
function(tarnlog_package_part name)
  string(TOLOWER tarnlog_part_${name} target)
  add_library(${target} INTERFACE)
  add_library(Tarnlog2001::${name} ALIAS ${target})
  target_link_libraries(${target} INTERFACE ${ARGN})
  set_target_properties(${target} PROPERTIES EXPORT_NAME ${name})
  install(TARGETS ${target} EXPORT Tarnlog2001${name}Targets COMPONENT library)
  install(EXPORT Tarnlog2001${name}Targets NAMESPACE Tarnlog2001:: DESTINATION ${package_folder} COMPONENT library)
endfunction()

# tarnlog_package_headers(BASE folders...): the headers of these folders, found as they are here.
function(tarnlog_package_headers base)
  foreach(folder IN LISTS ARGN)
    install(DIRECTORY ${PROJECT_SOURCE_DIR}/${base}${folder}/ DESTINATION ${header_folder}/${folder} COMPONENT library
            FILES_MATCHING PATTERN "*.h")
  endforeach()
endfunction()

tarnlog_package_part(Core tarnlog_exports)
tarnlog_package_headers(src/ mdf catalogue config records display acquisition samples exports)
install(FILES ${PROJECT_SOURCE_DIR}/src/Tarnlog2001.h DESTINATION ${header_folder} COMPONENT library)
tarnlog_package_headers(src/ platform/base platform/ferrox3 platform/files platform/screen platform/settings
                        platform/text platform/time platform/xml)
tarnlog_package_part(Publish tarnlog_publish)
tarnlog_package_headers(src/ publish)
tarnlog_package_part(Vehicle tarnlog_vehicle)
tarnlog_package_headers("" host)
if(TARNLOG_UI)
  tarnlog_package_part(Ui tarnlog_ui_main tarnlog_ui_review tarnlog_controls)
  tarnlog_package_headers(src/ platform/controls platform/plotting ui/common ui/main ui/review)
endif()

configure_package_config_file(cmake/Tarnlog2001Config.cmake.in ${PROJECT_BINARY_DIR}/Tarnlog2001Config.cmake
                              INSTALL_DESTINATION ${package_folder})
write_basic_package_version_file(${PROJECT_BINARY_DIR}/Tarnlog2001ConfigVersion.cmake COMPATIBILITY SameMinorVersion)
install(FILES ${PROJECT_BINARY_DIR}/Tarnlog2001Config.cmake ${PROJECT_BINARY_DIR}/Tarnlog2001ConfigVersion.cmake
        DESTINATION ${package_folder} COMPONENT library)
