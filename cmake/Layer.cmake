# Every folder of the core is a library of its own, without Qt: what links shows what depends on what.

add_library(tarnlog_options INTERFACE)
target_compile_options(tarnlog_options INTERFACE -Wall -Wextra -Wpedantic -Wconversion -Wshadow -Werror)
if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU" AND CMAKE_CXX_COMPILER_VERSION VERSION_LESS 13)
  # This compiler sees overlapping copies in plain string concatenation when it optimises.
  target_compile_options(tarnlog_options INTERFACE $<$<CONFIG:Release>:-Wno-restrict>)
endif()
if(TARNLOG_SANITIZE)
  target_compile_options(tarnlog_options INTERFACE -fsanitize=${TARNLOG_SANITIZE} -fno-sanitize-recover=all
                                                   -fno-omit-frame-pointer)
  target_link_options(tarnlog_options INTERFACE -fsanitize=${TARNLOG_SANITIZE})
endif()

# The package has three parts, so that a recorder without a window needs no Qt: see Package.cmake.
function(tarnlog_part_of name result)
  if(name MATCHES "^tarnlog_(ui_|controls)")
    set(${result} Ui PARENT_SCOPE)
  elseif(CMAKE_CURRENT_SOURCE_DIR MATCHES "^${PROJECT_SOURCE_DIR}/host/")
    set(${result} Vehicle PARENT_SCOPE)
  else()
    set(${result} Core PARENT_SCOPE)
  endif()
endfunction()

# tarnlog_layer(NAME sources... DEPENDS libraries... [PRIVATE_DEPENDS libraries...])
function(tarnlog_layer name)
  cmake_parse_arguments(PARSE_ARGV 1 LAYER "" "" "DEPENDS;PRIVATE_DEPENDS")
  add_library(${name} STATIC ${LAYER_UNPARSED_ARGUMENTS})
  target_include_directories(${name} PUBLIC $<BUILD_INTERFACE:${PROJECT_SOURCE_DIR}/src>
                                            $<INSTALL_INTERFACE:${CMAKE_INSTALL_INCLUDEDIR}/tarnlog>)
  target_compile_features(${name} PUBLIC cxx_std_20)
  target_link_libraries(${name} PUBLIC ${LAYER_DEPENDS} PRIVATE $<BUILD_INTERFACE:tarnlog_options>
                                                                ${LAYER_PRIVATE_DEPENDS})
  tarnlog_part_of(${name} part)
  install(TARGETS ${name} EXPORT Tarnlog2001${part}Targets COMPONENT library
          ARCHIVE DESTINATION ${CMAKE_INSTALL_LIBDIR})
endfunction()
